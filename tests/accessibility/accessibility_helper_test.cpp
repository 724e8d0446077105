#include "accessibility/accessibility_helper.h"

#include "support/captured_log.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

TEST(AccessibilityHelper, LogsTheStatusesThatHaveANameThere) {
    CapturedLog log;
    for (int code = -25200; code >= -25213; --code) {
        AccessibilityHelper::logResultCode(static_cast<AXError>(code), std::to_string(code));
    }
    AccessibilityHelper::logResultCode(static_cast<AXError>(0), "0");
    EXPECT_THAT(log.take(), testing::ElementsAre("-25201: kAXErrorIllegalArgument",
                                                 "-25202: kAXErrorInvalidUIElement",
                                                 "-25204: kAXErrorCannotComplete",
                                                 "-25205: kAXErrorAttributeUnsupported",
                                                 "-25208: kAXErrorNotImplemented",
                                                 "-25212: kAXErrorNoValue", "0: kAXErrorSuccess"));
}

} // namespace
} // namespace panewright
