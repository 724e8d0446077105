// What images are that have not been painted, and their way to a file and back.

#include "desktop/memory/memory_images.h"
#include "desktop/qt/qt_image.h"
#include "desktop/qt/qt_images.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <limits>

namespace panewright {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr Colour kRed{1, 0, 0, 1};
constexpr Colour kBlue{0, 0, 1, 1};

Picture filled(Size size, Colour colour) {
    return {size, {{PictureShape::Kind::kFill, makeRect({}, size), colour}}};
}

/// As it is shown at its own size, on a display with that many pixels to the point.
QImage painted(const ImagePtr& image, int scale) {
    const Size size = image->size();
    QImage canvas(static_cast<int>(size.width) * scale, static_cast<int>(size.height) * scale,
                  QImage::Format_ARGB32);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    qtImageOf(image)->paint()(painter, QRectF(canvas.rect()));
    return canvas;
}

TEST(ImagesContract, HaveSizesAndGoThroughFiles) {
    MemoryImages memory;
    QtImages qt;
    for (Images* images : std::initializer_list<Images*>{&memory, &qt}) {
        SCOPED_TRACE(images == &qt ? "Qt" : "memory");
        int timesDrawn = 0;
        const auto image = images->imageOfSize({28, 16}, [&] {
            ++timesDrawn;
            return filled({28, 16}, kRed);
        });
        const auto copy = images->resized(image, {14, 8});
        const auto both = images->composed({48, 16}, {{image, {20, 0, 28, 16}}, {nullptr, {}}});
        EXPECT_EQ(timesDrawn, 0);
        EXPECT_EQ(image->size(), (Size{28, 16}));
        EXPECT_EQ(copy->size(), (Size{14, 8}));
        EXPECT_EQ(both->size(), (Size{48, 16}));
        EXPECT_EQ(images->imageOfSize({28, kInfinity}, nullptr)->size(), (Size{28, 280}));
        EXPECT_EQ(images->resized(nullptr, {1, 1}), nullptr);
        for (const auto type : {ImageFileType::kPng, ImageFileType::kJpeg}) {
            const auto file = images->representation(both, type, {.compressionFactor = 0.5});
            ASSERT_TRUE(file);
            EXPECT_EQ(images->imageWithData(*file)->size(), (Size{48, 16}));
            EXPECT_FALSE(images->representation(nullptr, type, {}));
        }
        EXPECT_EQ(images->imageWithData({1, 2, 3}), nullptr);
    }
}

TEST(ImagesContract, ArePaintedAtTheScaleOfTheDisplay) {
    QtImages images;
    Picture picture = filled({4, 2}, kRed);
    picture.shapes.push_back({PictureShape::Kind::kFill, {2, 0.5, 1, 1}, kBlue});
    picture.shapes.push_back({PictureShape::Kind::kFill, {kInfinity, 0, 1, 1}, kBlue});
    picture.shapes.push_back({PictureShape::Kind::kStroke, {-1e300, -1e300, 2e300, 2e300}, kBlue});
    const auto image = images.imageOfSize({4, 2}, [&] { return picture; });
    const auto both = images.composed({6, 4}, {{image, {2, 0, 4, 2}}, {image, {-2, 2, 4, 2}}});
    const QImage whole = painted(both, 2);
    const auto red = qRgb(255, 0, 0);
    const auto blue = qRgb(0, 0, 255);
    EXPECT_EQ(whole.pixel(4, 0), red);
    EXPECT_EQ(whole.pixel(8, 0), red);
    EXPECT_EQ(whole.pixel(8, 1), blue) << "half a point is a pixel";
    EXPECT_EQ(whole.pixel(9, 2), blue);
    EXPECT_EQ(whole.pixel(10, 1), red);
    EXPECT_EQ(qAlpha(whole.pixel(0, 0)), 0);
    EXPECT_EQ(whole.pixel(0, 5), blue) << "cut off at the left";
    EXPECT_EQ(qAlpha(whole.pixel(5, 5)), 0) << "it ends with its own edge";
    // Larger than it is, it keeps its proportions.
    EXPECT_EQ(iconOf(both).actualSize({60, 60}), QSize(60, 40));
    EXPECT_TRUE(iconOf(MemoryImages().imageOfSize({1, 1}, nullptr)).isNull());
}

} // namespace
} // namespace panewright
