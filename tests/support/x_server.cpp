#include "support/x_server.h"

#include <csignal>
#include <stdexcept>

namespace panewright::test {
namespace {

std::vector<std::string> commandLine(const XServer::Options& options) {
    // The server takes a free number and writes it when it is ready. Without -noreset it would
    // forget its monitors and keyboard whenever its last client leaves.
    std::vector<std::string> command{
        "Xvfb",     "-displayfd",
        "1",        "-screen",
        "0",        std::to_string(options.width) + "x" + std::to_string(options.height) + "x24",
        "-noreset", "-nolisten",
        "tcp"};
    command.insert(command.end(), options.arguments.begin(), options.arguments.end());
    return command;
}

} // namespace

XServer::XServer(const Options& options, const Environment& environment)
    : process_(commandLine(options), environment) {
    eventually([this] {
        return process_.standardOutput().ends_with('\n') || process_.exitStatus().has_value();
    });
    const std::string number = process_.standardOutput();
    if (!number.ends_with('\n')) {
        throw std::runtime_error("Xvfb does not start: " + process_.standardError());
    }
    display_ = ":" + number.substr(0, number.size() - 1);
}

void XServer::kill() {
    process_.sendSignal(SIGKILL);
    process_.waitForEnd();
}

} // namespace panewright::test
