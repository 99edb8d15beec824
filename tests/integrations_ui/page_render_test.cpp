#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QImage>
#include <gtest/gtest.h>

namespace {

// The share of pixels that differ clearly (more than 48 in a channel): font rendering moves edges by
// a pixel from one machine to the next, a wrong value or layout changes whole glyphs and areas.
double differingShare(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return 1.0;
    qsizetype nDiffering = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            if (std::abs(qRed(p) - qRed(q)) > 48 || std::abs(qGreen(p) - qGreen(q)) > 48 ||
                std::abs(qBlue(p) - qBlue(q)) > 48)
                ++nDiffering;
        }
    return double(nDiffering) / double(a.width() * a.height());
}

// The demo's example pages five minutes into the demo drive, compared with their stored pictures
// (TARVIK_REGOLD=1 stores them anew).
TEST(PageRender, DrawsTheExamplePagesAsStored) {
    const QString source = QStringLiteral(TARVIK_SOURCE_DIR);
    for (const char* page : {"Bordcomputer", "Uhr", "Hoehe"})
        for (const char* size : {"240x320", "800x480"}) {
            TestRoot root;
            const QString out = root.file("page.png");
            const ToolResult result = runTool(
                {"--root", root.path(), "page", "render", source + "/data/demo/Tarvik/" + page + ".ini",
                 "--size", size, "--out", out, "--replay", source + "/data/demo/drive.nmea", "--at", "300",
                 "--now", "2025-05-17T09:14:00+02:00", "--set", "BatPerc=80"});
            ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
            const QString expected = source + QStringLiteral("/tests/data/custom/%1-%2.png").arg(page, size);
            const QImage image(out);
            if (qEnvironmentVariable("TARVIK_REGOLD") == "1") {
                QDir().mkpath(QFileInfo(expected).absolutePath());
                ASSERT_TRUE(image.save(expected));
                continue;
            }
            EXPECT_LT(differingShare(image, QImage(expected)), 0.02) << page << " " << size;
        }
}

} // namespace
