#include "services/launch_agent_format.h"

#include "archive/xml_property_list.h"

namespace panewright {

std::string LaunchAgentFormat::encode(const LaunchAgent& agent) const {
    ArchiveDictionary entries{
        {"Label", agent.label},
        {"LimitLoadToSessionType", "Aqua"}, // only the graphical login session
        {"RunAtLoad", true},
        {"Program", agent.program},
    };
    if (agent.programArguments) {
        entries.push_back({"ProgramArguments", ArchiveArray(agent.programArguments->begin(),
                                                            agent.programArguments->end())});
    }
    return xmlPropertyList(entries).value_or("");
}

std::optional<std::string> LaunchAgentFormat::programIn(std::string_view content) const {
    const auto agent = valueOfXmlPropertyList(content);
    const auto* entries = agent ? agent->dictionary() : nullptr;
    if (!entries) {
        return std::nullopt;
    }
    for (const auto& [key, value] : *entries) {
        if (key == ArchiveValue("Program") && value.string()) {
            return *value.string();
        }
    }
    return std::nullopt;
}

} // namespace panewright
