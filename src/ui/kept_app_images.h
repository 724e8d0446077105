#pragma once

#include "platform/images.h"
#include "platform/standard_folders.h"
#include "ui/composite_image.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace panewright {

/// Images of applications, kept on disk under their bundle identifiers. An identifier that is no
/// plain file name, such as one with "/", has no file. Main thread only.
class PNRUtils {
public:
    /// Both must outlive it.
    PNRUtils(Images& images, const StandardFolders& folders) : images_(images), folders_(folders) {}

    ImagePtr compositeImage(const ImagePtr& image, const ImagePtr& withAppIconImage) const {
        return compositeImageWithAppIconImage(images_, image, withAppIconImage);
    }

    /// The same with the image that is kept for the application; null, not the bare picture, if
    /// there is none.
    ImagePtr compositeImage(const ImagePtr& image, std::string_view withAppImage) const;

    /// Keeps the image unless there is a file already. Failures are ignored.
    void saveAppImage(const ImagePtr& image, std::string_view bundleId) const;

    /// Null if there is none that can be read.
    ImagePtr appImageForBundleId(std::string_view bundleId) const;

private:
    std::optional<std::filesystem::path> fileFor(std::string_view bundleId) const;

    Images& images_;
    const StandardFolders& folders_;
};

} // namespace panewright
