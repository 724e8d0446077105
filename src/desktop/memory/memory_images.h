#pragma once

#include "platform/images.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

namespace panewright {

/// An image that remembers what it was made of.
class MemoryImage : public Image {
public:
    explicit MemoryImage(Size size) : size_(size) {}

    Size size() const override { return size_; }

    /// Null for an image that this adapter has not made.
    static const MemoryImage* of(const ImagePtr& image) {
        return dynamic_cast<const MemoryImage*>(image.get());
    }

    /// What it shows when it is painted now; empty for one that was not drawn.
    Picture picture() const { return drawing ? drawing() : Picture{}; }

    std::function<Picture()> drawing;
    /// What it is a copy of; null for no copy.
    ImagePtr original;
    std::vector<PlacedImage> parts;

private:
    Size size_;
};

/// Images whose files hold their sizes.
class MemoryImages : public Images {
public:
    ImagePtr imageOfSize(Size size, std::function<Picture()> drawing) override {
        auto image = std::make_shared<MemoryImage>(bounded(size));
        image->drawing = std::move(drawing);
        return image;
    }
    ImagePtr resized(const ImagePtr& image, Size size) override {
        if (!image) {
            return nullptr;
        }
        auto copy = std::make_shared<MemoryImage>(bounded(size));
        copy->original = image;
        return copy;
    }
    ImagePtr composed(Size size, std::vector<PlacedImage> parts) override {
        auto image = std::make_shared<MemoryImage>(bounded(size));
        image->parts = std::move(parts);
        return image;
    }
    ImagePtr imageWithData(const Bytes& data) override {
        std::istringstream file(std::string(data.begin(), data.end()));
        std::string type;
        Size size;
        return file >> type >> size.width >> size.height && (type == "PNG" || type == "JPEG")
                   ? std::make_shared<MemoryImage>(size)
                   : nullptr;
    }
    std::optional<Bytes> representation(const ImagePtr& image, ImageFileType type,
                                        const ImageEncodingOptions& /*options*/) override {
        if (!image) {
            return std::nullopt;
        }
        std::ostringstream file;
        file << (type == ImageFileType::kPng ? "PNG " : "JPEG ") << image->size().width << ' '
             << image->size().height;
        const auto content = file.str();
        return Bytes(content.begin(), content.end());
    }

private:
    static Size bounded(Size size) {
        return {std::min(size.width, kLargestImage.width),
                std::min(size.height, kLargestImage.height)};
    }
};

} // namespace panewright
