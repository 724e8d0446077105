#include "menubar/apply_window_state_command.h"

#include "menubar/status_item_controller.h"

#include <utility>

namespace panewright {

ApplyWindowStateCommand::ApplyWindowStateCommand(ScriptArguments evaluatedArguments,
                                                 std::shared_ptr<StatusItemController> controller)
    : evaluatedArguments_(std::move(evaluatedArguments)), controller_(std::move(controller)) {}

bool ApplyWindowStateCommand::performDefaultImplementation() const {
    const auto name = evaluatedArguments_.find(kWindowStateNameArgument);
    const auto application = evaluatedArguments_.find(kApplicationNameArgument);
    if (!controller_ || name == evaluatedArguments_.end()) {
        return false;
    }
    return application == evaluatedArguments_.end()
               ? controller_->applyWindowStateNamed(name->second)
               : controller_->applyWindowStateNamed(name->second, application->second);
}

} // namespace panewright
