#include "chart/PrimitiveLinkPainter.h"
#include "chart/PrimitiveLink.h"
#include "tests/unit/chart/PaintedSeries.h"

#include <cmath>

namespace {

struct LinkView : View {
    LinkView() { points = 40; }
};

// Every quadrilateral by itself: the clip intersected with its region, and filled.
QImage plainLink(const View &view, const CPrimitiveLink &link) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    const LayerMapping map = view.mapping();
    int previous = -1;
    for (int r = 0; r < view.points + 500; ++r) {
        const int position = view.firstPos + r;
        const int first = link.m_pFirst->GetPos(position), second = link.m_pSecond->GetPos(position);
        if (first < 0 || second < 0)
            continue;
        if (previous < 0)
            for (previous = position - 1; previous >= 0; --previous)
                if (link.m_pFirst->GetPos(previous) >= 0 && link.m_pSecond->GetPos(previous) >= 0)
                    break;
        const double a = link.m_pFirst->FirstValue(first), b = link.m_pSecond->FirstValue(second);
        const QColor color = link.m_nColorMode == 0   ? link.m_pFirst->m_lineColor
                             : link.m_nColorMode == 1 ? link.m_pSecond->m_lineColor
                             : link.m_nColorMode != 2 ? QColor()
                             : a > b                  ? link.m_pFirst->m_lineColor
                                                      : link.m_pSecond->m_lineColor;
        const int x = map.CenterX(r), ya = map.Y(static_cast<float>(a)), yb = map.Y(static_cast<float>(b));
        if (!link.m_nFill) {
            painter.setClipRect(plot);
            painter.setPen(QPen(color, 1));
            painter.drawLine(x, ya, x, yb);
        } else if (previous >= 0) {
            const int x2 = map.CenterX(previous - view.firstPos);
            const int ya2 =
                map.Y(static_cast<float>(link.m_pFirst->FirstValue(link.m_pFirst->GetPos(previous))));
            const int yb2 =
                map.Y(static_cast<float>(link.m_pSecond->FirstValue(link.m_pSecond->GetPos(previous))));
            const QRegion area(QPolygon({QPoint(x2, ya2), QPoint(x, ya), QPoint(x, yb), QPoint(x2, yb2)}));
            painter.setClipRegion(QRegion(plot).intersected(area));
            painter.fillRect(plot, color);
        }
        previous = position;
    }
    return image;
}

QImage paintedLink(const View &view, const CPrimitiveLink &link) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    painter.setClipRect(plot);
    PaintPass pass(painter, view.mapping());
    paintLinks(pass, {link}, 0, view.points + 500);
    return image;
}

struct LinkCase {
    int points, fill, mode;
};

class Links : public testing::TestWithParam<LinkCase> {};

TEST_P(Links, JoinTwoSeries) {
    Series first(PT_LINE, {}, 0xFF4080C0), second(PT_LINE, {}, 0xFFC08040);
    std::vector<Value> a, b;
    std::vector<int> places;
    for (int i = 0; i < 900; ++i) {
        a.push_back({i, 1.3f + 0.02f * std::sin(i * 0.13f)});
        b.push_back({i, 1.3f + 0.015f * std::cos(i * 0.31f)});
        places.push_back(i + i / 7);
    }
    first.values(a);
    second.values(b);
    first.place(places);
    second.place();
    View view;
    view.points = GetParam().points;
    view.firstPos = 13;
    const CPrimitiveLink link(nullptr, &first.primitive, &second.primitive, GetParam().fill, GetParam().mode);
    const QImage actual = paintedLink(view, link);
    EXPECT_TRUE(samePixels(actual, plainLink(view, link)));
    EXPECT_GT(inkCount(actual), 100);
    first.primitive.m_nPenWidth = 0;
    EXPECT_EQ(inkCount(paintedLink(view, link)), 0);
}

INSTANTIATE_TEST_SUITE_P(Painters, Links,
                         testing::Values(LinkCase{20, 1, 0}, LinkCase{60, 1, 1}, LinkCase{60, 1, 2},
                                         LinkCase{200, 1, 2}, LinkCase{600, 1, 2}, LinkCase{60, 1, 7},
                                         LinkCase{60, 0, 0}, LinkCase{60, 0, 2}, LinkCase{600, 0, 1}));

// On a frozen scale the far end of an area may be thousands of rows outside.
TEST(PaintersLinks, AreasToFarValuesKeepTheirEdges) {
    Series first(PT_LINE, {}, 0xFF4080C0), second(PT_LINE, {}, 0xFFC08040);
    std::vector<Value> a, b;
    for (int i = 0; i < 30; ++i) {
        a.push_back({i, 1.3f + (i % 3 == 1 ? 3.0f : i % 3 == 2 ? -1.8f : 0.0f)}); // 15000, 9000 rows
        b.push_back({i, 1.29f});
    }
    first.values(a);
    second.values(b);
    first.place();
    second.place();
    for (int points : {4, 10}) {
        View view;
        view.points = points;
        const CPrimitiveLink link(nullptr, &first.primitive, &second.primitive, 1, 0);
        const QImage actual = paintedLink(view, link), plain = plainLink(view, link);
        int different = 0;
        for (int y = 0; y < plain.height(); ++y)
            for (int x = 0; x < plain.width(); ++x)
                different += actual.pixel(x, y) != plain.pixel(x, y);
        EXPECT_LE(different, inkCount(plain) / 200);
        EXPECT_GT(inkCount(plain), 1000);
    }
}

TEST(PaintersLinks, WithoutOneOfTheSeriesNothingIsJoined) {
    const auto series = makeSeries(PT_LINE, {}, 70);
    EXPECT_EQ(inkCount(paintedLink(LinkView(), CPrimitiveLink(nullptr, &series->primitive, nullptr, 1, 0))),
              0);
    EXPECT_EQ(inkCount(paintedLink(LinkView(), CPrimitiveLink(nullptr, nullptr, &series->primitive, 1, 0))),
              0);
}

} // namespace
