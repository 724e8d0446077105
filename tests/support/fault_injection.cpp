#include "support/fault_injection.h"

#include <dlfcn.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>

namespace panewright::faults {
namespace {

struct Plan {
    std::string folder;
    std::string name;
    int number = 0;
    int error = 0;
    bool shortWrites = false;
};

Plan plan; // changed only while nothing is being written
std::atomic<int> calls{0};

bool concerns(const std::string& path) {
    return !plan.folder.empty() && path.rfind(plan.folder, 0) == 0;
}

std::string pathOf(int descriptor) {
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return length < 0 ? "" : std::string(path.data(), static_cast<std::size_t>(length));
}

/// Whether this is the call that is to fail; sets errno if so.
bool mustFail(const char* name, const std::string& path) {
    if (plan.name != name || !concerns(path) || ++calls != plan.number) {
        return false;
    }
    errno = plan.error;
    return true;
}

template <class Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

void failCall(const std::filesystem::path& folder, const std::string& name, int number, int error) {
    plan = {folder.string(), name, number, error, false};
    calls = 0;
}

void shortWrites(const std::filesystem::path& folder) {
    plan = {folder.string(), "", 0, 0, true};
    calls = 0;
}

bool stop() {
    const bool happened = calls >= plan.number;
    plan = {};
    return happened;
}

} // namespace panewright::faults

using namespace panewright::faults;

extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t size) {
    static auto* const kReal = next<ssize_t(int, const void*, std::size_t)>("write");
    if (mustFail("write", pathOf(descriptor))) {
        return -1;
    }
    if (plan.shortWrites && size > 1 && concerns(pathOf(descriptor))) {
        if (++calls % 2 == 0) {
            errno = EINTR;
            return -1;
        }
        return kReal(descriptor, bytes, size / 2);
    }
    return kReal(descriptor, bytes, size);
}

extern "C" int fsync(int descriptor) {
    static auto* const kReal = next<int(int)>("fsync");
    return mustFail("fsync", pathOf(descriptor)) ? -1 : kReal(descriptor);
}

extern "C" int close(int descriptor) {
    static auto* const kReal = next<int(int)>("close");
    const bool fails = mustFail("close", pathOf(descriptor));
    const int error = errno;
    const int result = kReal(descriptor); // also one that fails has closed
    if (!fails) {
        return result;
    }
    errno = error;
    return -1;
}

extern "C" int rename(const char* from, const char* to) noexcept {
    static auto* const kReal = next<int(const char*, const char*)>("rename");
    return mustFail("rename", from) ? -1 : kReal(from, to);
}
