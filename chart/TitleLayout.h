#pragma once

#include <QRect>
#include <QString>

// Where the titles of a pane stand, and how captions are cut.

enum TitleAlignment { titlesLeft = 0, titlesRight = 1, titlesTop = 2 };

// Hands out the places of the titles of one pane, one after the other.
class TitleAnchors {
public:
    // `left` and `right` are the inclusive columns of the pane between its scales, `top` its first row.
    TitleAnchors(int alignment, int left, int right, int top)
        : m_alignment(alignment), m_left(left), m_right(right), m_y(top + 1), m_x(left) {}

    // The text rectangle of a title of this size.
    QRect Place(int width, int height) const;
    // The text rectangle of a remark of `width` beside the title that stands in `title`.
    QRect PlaceRemark(const QRect &title, int width) const;
    // After a title and its remark, if it has one.
    void Advance(int width, int height, int remarkWidth);
    // A title in the top row that would start past the pane is left out.
    bool IsOut() const { return m_alignment == titlesTop && m_x > m_right - m_left + 1; }

private:
    int m_alignment;
    int m_left;
    int m_right;
    int m_y;
    int m_x;
};

// At most 254 characters: a longer caption is cut to 251 and gets three points.
QString cutCaption(const QString &caption);

// " (1.2345) ".
QString titleValue(double value, int decimals);
