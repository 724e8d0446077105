#include "updates/appcast.h"

#include "updates/build_version.h"

#include <expat.h>

#include <memory>
#include <utility>
#include <vector>

namespace panewright::updates {
namespace {

constexpr std::string_view kThisSystem = "linux";

/// RSS is no deeper than this, and what is deeper is nothing of ours.
constexpr std::size_t kDeepest = 32;

struct ParserRelease {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserRelease>;

std::string_view withoutPrefix(std::string_view name) {
    const auto colon = name.rfind(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string trimmed(const std::string& text) {
    constexpr const char* kSpace = " \t\r\n";
    const auto first = text.find_first_not_of(kSpace);
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

/// Follows the document and keeps the best item.
class Reader {
public:
    explicit Reader(XML_Parser parser) : parser_(parser) {
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, started, ended);
        XML_SetCharacterDataHandler(parser, text);
        XML_SetStartDoctypeDeclHandler(parser, doctype);
    }

    bool isFeed() const { return isFeed_; }
    bool hasDoctype() const { return hasDoctype_; }
    const std::optional<Release>& best() const { return best_; }

private:
    struct Item {
        Release release;
        std::string system;
    };

    static void started(void* self, const XML_Char* name, const XML_Char** attributes) {
        static_cast<Reader*>(self)->start(withoutPrefix(name), attributes);
    }
    static void ended(void* self, const XML_Char* /*name*/) { static_cast<Reader*>(self)->end(); }
    static void text(void* self, const XML_Char* text, int length) {
        static_cast<Reader*>(self)->text_.append(text, static_cast<std::size_t>(length));
    }
    static void doctype(void* self, const XML_Char*, const XML_Char*, const XML_Char*, int) {
        auto* const reader = static_cast<Reader*>(self);
        reader->hasDoctype_ = true;
        XML_StopParser(reader->parser_, XML_FALSE);
    }

    void start(std::string_view name, const XML_Char** attributes) {
        path_.emplace_back(name);
        text_.clear();
        isFeed_ |= path_ == std::vector<std::string>{"rss", "channel"};
        if (path_.size() > kDeepest) {
            XML_StopParser(parser_, XML_FALSE);
        } else if (path_ == std::vector<std::string>{"rss", "channel", "item"}) {
            item_ = Item{};
        } else if (item_ && path_.size() == 4 && name == "enclosure") {
            for (; *attributes; attributes += 2) {
                set(withoutPrefix(attributes[0]), attributes[1]);
            }
        }
    }

    void end() {
        if (item_ && path_.size() == 4 && path_.back() != "os") {
            set(path_.back(), trimmed(text_));
        } else if (item_ && path_.size() == 3) {
            consider(*std::exchange(item_, std::nullopt));
        }
        path_.pop_back();
    }

    void set(std::string_view name, const std::string& value) {
        if (name == "version") {
            item_->release.buildVersion = value;
        } else if (name == "shortVersionString") {
            item_->release.shortVersion = value;
        } else if (name == "link") {
            item_->release.link = value;
        } else if (name == "os") {
            item_->system = value;
        }
    }

    void consider(Item item) {
        auto& release = item.release;
        const auto version = BuildVersion::of(release.buildVersion);
        if (!version || (!item.system.empty() && item.system != kThisSystem) ||
            (best_ && *version <= *BuildVersion::of(best_->buildVersion))) {
            return;
        }
        if (release.shortVersion.empty()) {
            release.shortVersion = release.buildVersion;
        }
        best_ = std::move(release);
    }

    XML_Parser parser_;
    std::vector<std::string> path_;
    std::string text_;
    std::optional<Item> item_;
    std::optional<Release> best_;
    bool isFeed_ = false;
    bool hasDoctype_ = false;
};

} // namespace

std::variant<std::optional<Release>, Malformed> newestRelease(std::string_view feed) {
    const Parser parser(XML_ParserCreate(nullptr));
    Reader reader(parser.get());
    const auto status =
        XML_Parse(parser.get(), feed.data(), static_cast<int>(feed.size()), XML_TRUE);
    if (reader.hasDoctype()) {
        return Malformed{"it has a document type"};
    }
    if (status != XML_STATUS_OK) {
        return Malformed{XML_ErrorString(XML_GetErrorCode(parser.get()))};
    }
    if (!reader.isFeed()) {
        return Malformed{"it is no RSS channel"};
    }
    return reader.best();
}

} // namespace panewright::updates
