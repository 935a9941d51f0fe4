#pragma once
#include "host/pages/Page.h"
#include <QPushButton>
#include <functional>

namespace desk {

// A button that shows a colour and opens the colour dialog.
class ColourButton : public QPushButton {
    Q_OBJECT

public:
    explicit ColourButton(QWidget *parent = nullptr);
    QColor colour() const { return m_colour; }
    void setColour(const QColor &colour);

signals:
    void colourChanged(const QColor &colour);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void choose();
    QColor m_colour;
};

// A button that names a font in that font and opens the font dialog.
class FontButton : public QPushButton {
    Q_OBJECT

public:
    explicit FontButton(QWidget *parent = nullptr);
    QFont chosenFont() const { return m_font; }
    void setChosenFont(const QFont &font);

signals:
    void fontChosen(const QFont &font);

private:
    void choose();
    QFont m_font;
};

// One editor of a page: the widget, and how a value gets in and out. `changed` is called on each change by
// the user, not on setValue.
struct PageEditor {
    QWidget *widget = nullptr;
    std::function<QVariant()> value;
    std::function<void(const QVariant &)> setValue;
    std::function<void()> keep = nullptr; // of a hosted widget alone: its values were taken
};

// The editor of an item's kind, with the item's value and limits.
PageEditor makePageEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed);

} // namespace desk
