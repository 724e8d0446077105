#pragma once

#include "platform/authorization.h"
#include "platform/bundles.h"
#include "platform/child_processes.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace panewright {

/// A system whose programs are bundles. The program lies in the applications folder, until a test
/// puts it elsewhere. Programs that are run do nothing but end, as a test has set.
class MemoryBundles : public Bundles, public ChildProcesses, public Authorization {
public:
    std::filesystem::path mainBundle() const override { return program; }
    double toolkitVersion() const override { return toolkit; }
    std::vector<std::filesystem::path> applicationsFolders(Domain domain) const override {
        return domain == Domain::kLocal
                   ? std::vector<std::filesystem::path>{"/Applications"}
                   : std::vector<std::filesystem::path>{"/Users/me/Applications", "/Applications"};
    }
    std::vector<std::filesystem::path> downloadsFolders() const override {
        return {"/Users/me/Downloads"};
    }
    std::filesystem::path resolved(const std::filesystem::path& path) const override {
        return path;
    }
    std::optional<FileSystem> fileSystemOf(const std::filesystem::path& folder) const override {
        return folder.native().starts_with("/Volumes/") ? FileSystem{false, "/dev/disk2s1"}
                                                        : FileSystem{true, "/dev/disk1"};
    }
    bool exists(const std::filesystem::path& path) const override { return bundles.contains(path); }
    bool isWritable(const std::filesystem::path& path) const override {
        return !readOnly.contains(path);
    }
    std::optional<MovingError> copyItem(const std::filesystem::path& from,
                                        const std::filesystem::path& to) override {
        return done("copy " + from.string() + " " + to.string(), [&] { bundles.insert(to); });
    }
    std::optional<MovingError> removeItem(const std::filesystem::path& path) override {
        return done("remove " + path.string(), [&] { bundles.erase(path); });
    }
    std::optional<MovingError> recycle(const std::filesystem::path& folder,
                                       const std::filesystem::path& name) override {
        return done("recycle " + (folder / name).string(), [&] { bundles.erase(folder / name); });
    }
    std::vector<std::filesystem::path> runningExecutables() const override { return running; }
    int processIdentifier() const override { return 77; }

    std::optional<ChildEnd> run(const std::vector<std::string>& arguments) override {
        log.push_back("run" + joined(arguments));
        return endOf(arguments);
    }
    void start(const std::vector<std::string>& arguments) override {
        log.push_back("start" + joined(arguments));
    }

    int create() override { return 0; }
    int copyRights(const std::string& right, std::uint32_t flags) override {
        log.push_back("ask for " + right + " " + std::to_string(flags));
        return rightsStatus;
    }
    bool canExecute() override { return lendsRights; }
    std::optional<ChildEnd> execute(const std::vector<std::string>& arguments) override {
        log.push_back("as administrator" + joined(arguments));
        return endOf(arguments);
    }
    void free() override { log.emplace_back("give rights back"); }

    std::filesystem::path program = "/Applications/Panewright.app";
    double toolkit = 1038.36;
    std::set<std::filesystem::path> bundles;
    std::set<std::filesystem::path> readOnly;
    std::vector<std::filesystem::path> running;
    /// How programs end, by their paths; the others end with 0.
    std::map<std::string, std::optional<ChildEnd>> ends;
    /// What files operations fail with, by their first words in the log.
    std::map<std::string, std::string> failures;
    int rightsStatus = 0;
    bool lendsRights = true;
    /// What was done, in its order.
    std::vector<std::string> log;

private:
    template <class Work>
    std::optional<MovingError> done(const std::string& what, Work work) {
        log.push_back(what);
        const auto failure = failures.find(what.substr(0, what.find(' ')));
        if (failure != failures.end()) {
            return MovingError{failure->second};
        }
        work();
        return std::nullopt;
    }
    static std::string joined(const std::vector<std::string>& arguments) {
        std::string text;
        for (const auto& argument : arguments) {
            text += ' ' + argument;
        }
        return text;
    }
    std::optional<ChildEnd> endOf(const std::vector<std::string>& arguments) const {
        const auto found = ends.find(arguments.front());
        return found == ends.end() ? ChildEnd{0, ""} : found->second;
    }
};

} // namespace panewright
