#include "desktop/qt/icon_file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QGuiApplication>
#include <QIcon>
#include <QSize>

namespace panewright {
namespace {

namespace fs = std::filesystem;

class IconFile : public testing::Test {
protected:
    static void SetUpTestSuite() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 0;
        static const QGuiApplication kApplication(count, nullptr);
    }

    QString path(const std::string& name) const {
        return QString::fromStdString((folder_.path() / name).string());
    }
    void writePicture(const std::string& name, QSize size) const {
        fs::create_directories((folder_.path() / name).parent_path());
        QImage image(size, QImage::Format_Mono);
        image.fill(1);
        ASSERT_TRUE(image.save(path(name), "PNG"));
    }
    void writeSvg(const std::string& name, const std::string& content) const {
        setContent(folder_.path() / name, "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                                          "xmlns:x=\"http://www.w3.org/1999/xlink\" width=\"3000\" "
                                          "height=\"1500\">" +
                                              content + "</svg>");
    }
    static std::string repeated(const char* text, int count) {
        return QString(text).repeated(count).toStdString();
    }

    const TemporaryFolder folder_;
};

TEST_F(IconFile, IsReadUnlessItCouldDoHarm) {
    const std::string rectangle = R"(<rect id="r" width="9" height="9"/>)";
    writePicture("small", {48, 32});
    writePicture("wide", {1024, 512});
    writePicture("huge", {4096, 4096});
    const std::string undashed = R"(<path style="stroke-dasharray:none" stroke-dasharray="none"/>)";
    writeSvg("plain.svg", rectangle + undashed + R"(<use x:href="#r"/>)");
    writeSvg("dashed.svg", rectangle + undashed + R"(<path stroke-dasharray=".001"/>)");
    writeSvg("repeats.svg", rectangle + repeated(R"(<use x:href="#r"/>)", 25));
    writeSvg("nested.svg", repeated("<g>", 1000) + repeated("</g>", 1000));
    writeSvg("reads.svg", R"(<image x:href="pipe" width="9" height="9"/>)");
    writeSvg("styled.svg", R"(<?xml-stylesheet type="text/css" href="pipe"?>)");
    writeSvg("large.svg", "<!--" + std::string(1 << 20, ' ') + "-->");
    setContent(folder_.path() / "packed.svgz", "\x1F\x8B\x08");
    setContent(folder_.path() / "text", "no picture");
    fs::create_directory(folder_.path() / "folder");
    ASSERT_EQ(mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
    const std::pair<const char*, QSize> cases[] = {
        {"small", {48, 32}}, {"wide", {256, 128}}, {"plain.svg", {256, 128}},
        {"huge", {}},        {"repeats.svg", {}},  {"nested.svg", {}},
        {"reads.svg", {}},   {"styled.svg", {}},   {"large.svg", {}},
        {"packed.svgz", {}}, {"text", {}},         {"folder", {}},
        {"pipe", {}},        {"missing", {}},      {"dashed.svg", {}},
    };
    for (const auto& [name, size] : cases) {
        EXPECT_EQ(readIconFile(path(name)).size(), size.isValid() ? size : QSize(0, 0)) << name;
    }
}

TEST_F(IconFile, IsThatOfTheNearestSizeInTheThemeOrOneThatItInherits) {
    const std::string folders = "\n[16/apps]\nSize=16\n[48/apps]\nSize=48\n[any]\nSize=128\n"
                                "MinSize=100\nMaxSize=300\nType=Scalable\n[../out]\nSize=64\n";
    setContent(folder_.path() / "Own/index.theme",
               "[Icon Theme]\nInherits=Base\nDirectories=16/apps,48/apps,any,../out" + folders);
    setContent(folder_.path() / "Base/index.theme",
               "[Icon Theme]\nInherits=Own\nDirectories=48/apps" + folders);
    setContent(folder_.path() / "hicolor/index.theme",
               "[Icon Theme]\nDirectories=48/apps" + folders);
    for (const char* file :
         {"Own/16/apps/a.png", "Own/48/apps/a.svg", "Own/any/a.svg", "Own/16/apps/b.png",
          "Base/48/apps/b.png", "Base/48/apps/c.png", "hicolor/48/apps/d.png", "out/e.png"}) {
        setContent(folder_.path() / file, "");
    }
    ASSERT_EQ(mkfifo((folder_.path() / "Own/48/apps/pipe.png").c_str(), 0600), 0);
    QIcon::setThemeSearchPaths({QString::fromStdString(folder_.path().string())});
    QIcon::setThemeName("Own");
    const std::tuple<const char*, int, std::string> cases[] = {
        {"a", 64, "Own/48/apps/a.svg"},
        {"a", 16, "Own/16/apps/a.png"},
        {"a", 200, "Own/any/a.svg"},
        {"b", 64, "Own/16/apps/b.png"},
        {"c", 64, "Base/48/apps/c.png"},
        {"d", 64, "hicolor/48/apps/d.png"},
        {"e", 64, ""},
        {"pipe", 64, ""},
        {"../apps/a", 64, ""},
        {"", 64, ""},
    };
    for (const auto& [name, size, file] : cases) {
        EXPECT_EQ(IconThemeFiles(size).file(name), file.empty() ? QString() : path(file)) << name;
    }
}

} // namespace
} // namespace panewright
