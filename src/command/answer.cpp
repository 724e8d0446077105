#include "command/answer.h"

#include "command/escaped_text.h"
#include "command/service.h"
#include "command/state_list.h"
#include "command/status.h"
#include "command/time_limit.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace panewright::command {
namespace {

/// The message may quote what was typed, or another program.
int fail(const Failure& failure) {
    std::fprintf(stderr, "panewright: %s\n", escapedText(failure.message).c_str());
    return failure.status;
}

int print(const std::string& text) {
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), stdout) < text.size() ||
        std::fflush(stdout) != 0) {
        return fail(
            {kStatusCannotWrite, std::string("cannot write the output: ") + std::strerror(errno)});
    }
    return EXIT_SUCCESS;
}

/// A standard descriptor that is closed would be the next one opened: the connection to the bus.
/// What is opened here in its place refuses what would be done with it.
void occupyStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) == -1) {
            open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
}

/// Tells people what "false" means.
int succeedIf(const std::variant<bool, Failure>& result, const std::string& otherwise) {
    if (const auto* failure = std::get_if<Failure>(&result)) {
        return fail(*failure);
    }
    return std::get<bool>(result) ? EXIT_SUCCESS : fail({kStatusNothingDone, otherwise});
}

std::variant<ListedStates, Failure> listedStates() {
    const TimeLimit limit; // not for the printing, whose reader may take its time
    return callForStates("ListWindowStates");
}

int succeed(const std::variant<Nothing, Failure>& result) {
    const auto* failure = std::get_if<Failure>(&result);
    return failure ? fail(*failure) : EXIT_SUCCESS;
}

struct Answer {
    int operator()(const StartProgram& /*request*/) const { return EXIT_SUCCESS; }
    int operator()(const ShowText& request) const { return print(request.text); }
    int operator()(const Refuse& request) const { return fail({kStatusWrongUse, request.message}); }
    int operator()(const ApplyWindowState& request) const {
        const TimeLimit limit;
        const auto isApplied = request.application
                                   ? callForBool("ApplyWindowStateForApplication",
                                                 {request.name, *request.application})
                                   : callForBool("ApplyWindowState", {request.name});
        return succeedIf(isApplied, "no such window state");
    }
    int operator()(const ListWindowStates& request) const {
        const auto states = listedStates();
        if (const auto* failure = std::get_if<Failure>(&states)) {
            return fail(*failure);
        }
        const auto& listed = std::get<ListedStates>(states);
        switch (request.form) {
        case ListWindowStates::Form::kTable:
            return print(tableOf(listed));
        case ListWindowStates::Form::kJson:
            return print(jsonOf(listed));
        case ListWindowStates::Form::kNames:
            break;
        }
        return print(namesOf(listed));
    }
    int operator()(const MoveToNextDisplay& /*request*/) const {
        const TimeLimit limit;
        return succeedIf(callForBool("MoveToNextDisplay", {}), "the window was not moved");
    }
    int operator()(const OpenMenu& request) const {
        const TimeLimit limit;
        return succeed(call("OpenMenu", {request.isFlat}));
    }
    int operator()(const SaveWindow& /*request*/) const {
        const TimeLimit limit;
        return succeed(call("SaveWindow", {}));
    }
    int operator()(const ShowSettings& /*request*/) const {
        const TimeLimit limit;
        return succeed(call("ShowSettings", {}));
    }
    int operator()(const Quit& /*request*/) const {
        const TimeLimit limit;
        return succeed(call("Quit", {}));
    }
};

} // namespace

int answer(const Request& request) {
    occupyStandardDescriptors();
    return std::visit(Answer{}, request);
}

} // namespace panewright::command
