#include "ui/kept_app_images.h"

#include "base/file.h"
#include "model/application_folders.h"
#include "model/store_location.h"

#include <cstddef>
#include <string>
#include <system_error>

namespace panewright {
namespace {

constexpr std::string_view kAppImagesFolderName = "AppImages";
/// Of a file's name, in bytes, on every file system in use.
constexpr std::size_t kMaxFileName = 255;

bool isPlainFileName(std::string_view name) {
    return !name.empty() && name.size() <= kMaxFileName && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

} // namespace

ImagePtr PNRUtils::compositeImage(const ImagePtr& image, std::string_view withAppImage) const {
    const auto icon = appImageForBundleId(withAppImage);
    return icon ? compositeImage(image, icon) : nullptr;
}

void PNRUtils::saveAppImage(const ImagePtr& image, std::string_view bundleId) const {
    const auto file = fileFor(bundleId);
    std::error_code ignored;
    if (!file || std::filesystem::exists(std::filesystem::symlink_status(*file, ignored))) {
        return;
    }
    if (const auto content = images_.representation(image, ImageFileType::kPng, {})) {
        static_cast<void>(folders_.createDirectory(file->parent_path()));
        static_cast<void>(writeFileAtomically(*file, *content));
    }
}

ImagePtr PNRUtils::appImageForBundleId(std::string_view bundleId) const {
    const auto file = fileFor(bundleId);
    if (!file) {
        return nullptr;
    }
    const auto content = readFile(*file, kLargestImageFile);
    return content ? images_.imageWithData(content.value()) : nullptr;
}

/// Nil as well when the program's folder is not to be had, which is logged.
std::optional<std::filesystem::path> PNRUtils::fileFor(std::string_view bundleId) const {
    if (!isPlainFileName(bundleId)) {
        return std::nullopt;
    }
    const auto folder = applicationSupportDirectoryURLWithDirName(folders_, kStoreFolderName);
    return folder ? std::optional(*folder / kAppImagesFolderName / bundleId) : std::nullopt;
}

} // namespace panewright
