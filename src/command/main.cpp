// The command "panewright": what people and scripts start.

#include "command/answer.h"
#include "command/desktop_program.h"
#include "command/request.h"

#include <variant>

using namespace panewright::command;

int main(int argc, char* argv[]) {
    const auto request = requestOf({argv, static_cast<std::size_t>(argc)});
    return std::holds_alternative<StartProgram>(request) ? becomeDesktopProgram(argv)
                                                         : answer(request);
}
