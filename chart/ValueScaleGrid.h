#pragma once

#include <QColor>
#include <QImage>
#include <QLine>
#include <QPainter>
#include <vector>

// The dotted strokes beside the labels of a scale. They are the same in every row, so each pen width is
// stroked once in a frame and laid into the other rows as a picture of the same pixels.
class ValueScaleGrid {
public:
    // The strokes of one label; all in row 0.
    ValueScaleGrid(QPainter &painter, const QColor &color, std::vector<QLine> strokes);
    void Draw(int y, double penWidth);

private:
    struct Strip {
        double penWidth = 0;
        QImage image;
    };
    const Strip &StripOf(double penWidth);
    void Stroke(QPainter &painter, const QPoint &offset, double penWidth) const;

    QPainter &m_painter;
    QColor m_color;
    std::vector<QLine> m_strokes;
    bool m_direct; // a painter that scales gets the strokes themselves
    QRect m_place; // of a strip, around the strokes
    std::vector<Strip> m_strips;
};
