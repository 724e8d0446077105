#include "command/request.h"

#include "installation/program_facts.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace panewright::command {
namespace {

constexpr const char* kDescription =
    "Puts windows into saved states.\n"
    "\n"
    "Without a command Panewright starts and stays in the status bar until it is quit; it\n"
    "takes the toolkit's options too. Where it runs already, it opens its settings. The\n"
    "commands ask the Panewright that runs.\n";
constexpr const char* kFooter =
    "Status: 0 done; 1 no such state, or not moved; 3 not running, or no answer in 5 s;\n"
    "64 wrong use. \"panewright COMMAND --help\" and panewright(1) tell more.";
constexpr const char* kApplication = "--application";
constexpr std::size_t kDescriptionColumn = 24;

std::string version() {
    return std::string("Panewright ") + kProgramShortVersion + " (" + kProgramBuildVersion + ")\n";
}

/// The commands and their options, and the request that the parsed ones make.
class Parser {
public:
    Parser() {
        app_.get_formatter()->label("SUBCOMMAND", "[COMMAND]");
        app_.get_formatter()->label("Positionals", "Arguments");
        app_.get_formatter()->column_width(kDescriptionColumn);
        app_.set_help_flag("-h,--help", "print this and end");
        app_.set_version_flag("-V,--version", version(), "print the version and end");
        app_.add_flag("--background")->description("open nothing if Panewright runs already");
        app_.require_subcommand(1);
        addApply();
        addList();
        add("next-display", "Move the focused window to the next display.",
            [] { return MoveToNextDisplay(); });
        auto* menu = add("menu", "Open the menu.", [this] { return OpenMenu{isFlat_}; });
        menu->add_flag("--flat", isFlat_, "the states of all applications one below the other");
        add("save", "Open the popover that saves the focused window.", [] { return SaveWindow(); });
        add("settings", "Open the settings.", [] { return ShowSettings(); });
        add("quit", "Quit Panewright.", [] { return Quit(); });
        app_.footer(kFooter); // not that of the commands
    }

    /// Its subcommands point to its members.
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    /// Of the command that is parsed, if one is.
    std::string help() const {
        const auto text = app_.help();
        return text.substr(0, text.find_last_not_of('\n') + 1) + '\n';
    }

    bool knows(const std::string& command) const {
        const auto isNamed = [&](const CLI::App* known) { return known->get_name() == command; };
        return !app_.get_subcommands(isNamed).empty();
    }

    /// `arguments` start with a command.
    Request parse(std::vector<std::string> arguments) {
        const std::string command = arguments.front();
        std::reverse(arguments.begin(), arguments.end()); // the library takes them from the end
        try {
            app_.parse(std::move(arguments));
        } catch (const CLI::CallForHelp&) {
            return ShowText{help()};
        } catch (const CLI::ParseError& error) {
            return Refuse{whatIsWrong(error) + "; see \"panewright " + command + " --help\""};
        }
        return request_;
    }

private:
    /// A name that looks like an option is what people forget, not the name.
    std::string whatIsWrong(const CLI::ParseError& error) const {
        const auto unknown = app_.remaining(true);
        if (dynamic_cast<const CLI::RequiredError*>(&error) && !unknown.empty()) {
            return "unknown option '" + unknown.front() + "'; a name that begins with - follows --";
        }
        return error.what();
    }

    /// The request is made when the options are known.
    template <class MakeRequest>
    CLI::App* add(const std::string& name, const std::string& does, MakeRequest makeRequest) {
        auto* command = app_.add_subcommand(name, does);
        command->group("Commands");
        command->callback([this, makeRequest] { request_ = makeRequest(); });
        return command;
    }

    void addApply() {
        auto* apply = add("apply", "Put the focused window into a state.", [this] {
            return ApplyWindowState{
                name_, application_->count() > 0 ? std::optional(applicationName_) : std::nullopt};
        });
        apply->add_option("NAME", name_, "the state's name; after -- it may begin with -")
            ->required()
            ->option_text(" ");
        application_ = apply->add_option(kApplication, applicationName_,
                                         "only a state saved from the application of that name");
        application_->type_name("NAME");
    }

    void addList() {
        auto* list = add("list", "Print the states.", [this] {
            return ListWindowStates{isJson_    ? ListWindowStates::Form::kJson
                                    : isNames_ ? ListWindowStates::Form::kNames
                                               : ListWindowStates::Form::kTable};
        });
        auto* json = list->add_flag("--json", isJson_, "as JSON, with all that a state holds");
        auto* names = list->add_flag("--names", isNames_,
                                     "one name a line, control characters and \\ escaped with \\");
        names->excludes(json);
        for (auto* form : {json, names}) {
            form->option_text(" "); // not what it excludes
        }
    }

    CLI::App app_{kDescription, "panewright"};
    Request request_;
    std::string name_;
    CLI::Option* application_ = nullptr;
    std::string applicationName_;
    bool isJson_ = false;
    bool isNames_ = false;
    bool isFlat_ = false;
};

/// Takes "--application=" apart, for whose empty value the library would take the next argument.
std::vector<std::string> withEmptyValue(std::span<const char* const> arguments) {
    std::vector<std::string> all;
    const auto end = std::find(arguments.begin(), arguments.end(), std::string_view("--"));
    for (auto at = arguments.begin(); at != arguments.end(); ++at) {
        if (at < end && *at == std::string(kApplication) + "=") {
            all.insert(all.end(), {kApplication, ""});
        } else {
            all.emplace_back(*at);
        }
    }
    return all;
}

} // namespace

Request requestOf(std::span<const char* const> arguments) {
    const auto own = arguments.subspan(arguments.empty() ? 0 : 1);
    if (own.empty() || *own.front() == '-') {
        for (const std::string_view argument : own) {
            if (argument == "-h" || argument == "--help") {
                return ShowText{Parser().help()};
            }
            if (argument == "-V" || argument == "--version") {
                return ShowText{version()};
            }
        }
        return StartProgram{};
    }
    Parser parser;
    if (!parser.knows(own.front())) {
        return Refuse{"unknown command '" + std::string(own.front()) +
                      "'; --help tells what there is"};
    }
    return parser.parse(withEmptyValue(own));
}

} // namespace panewright::command
