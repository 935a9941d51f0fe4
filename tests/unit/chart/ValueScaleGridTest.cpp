#include "chart/ValueScaleGrid.h"

#include <gtest/gtest.h>

namespace {

const std::vector<QLine> strokes{QLine(500, 0, 506, 0), QLine(500, 0, 37, 0)};
const QColor color(0xEC, 0xE9, 0xD8);

QImage stroked(bool gathered, const QRect &clip, qreal scale) {
    QImage image(600, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Qt4CompatiblePainting);
    painter.setClipRect(clip);
    painter.scale(scale, scale);
    ValueScaleGrid grid(painter, color, strokes);
    for (int y = 3; y < 200; y += 7) {
        const double width = y % 3 == 0 ? 2.0 : 1.0;
        if (gathered) {
            grid.Draw(y, width);
            continue;
        }
        painter.setPen(QPen(color, width, Qt::DotLine));
        for (const QLine &stroke : strokes)
            painter.drawLine(stroke.translated(0, y));
    }
    return image;
}

class Grid : public testing::TestWithParam<QRect> {};

TEST_P(Grid, LandsOnThePixelsOfItsStrokes) {
    for (qreal scale : {1.0, 1.5})
        EXPECT_TRUE(stroked(true, GetParam(), scale) == stroked(false, GetParam(), scale)) << scale;
}

INSTANTIATE_TEST_SUITE_P(ValueScaleGrid, Grid,
                         testing::Values(QRect(0, 0, 600, 200), QRect(100, 50, 300, 61)));

TEST(ValueScaleGrid, StrokesAreDotted) {
    const QImage image = stroked(true, QRect(0, 0, 600, 200), 1);
    int inked = 0;
    for (int x = 40; x < 500; ++x)
        inked += image.pixel(x, 10) == color.rgb();
    EXPECT_GT(inked, 100);
    EXPECT_LT(inked, 400);
}

} // namespace
