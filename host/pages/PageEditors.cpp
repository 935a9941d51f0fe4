#include "host/pages/PageEditors.h"
#include "host/pages/HostedRoom.h"
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFontDialog>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QSpinBox>
#include <cmath>
#include <limits>

namespace desk {

ColourButton::ColourButton(QWidget *parent) : QPushButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QPushButton::clicked, this, &ColourButton::choose);
}

void ColourButton::setColour(const QColor &colour) {
    m_colour = colour;
    setText(colour.name().toUpper());
    setAccessibleName(text());
    update();
}

void ColourButton::choose() {
    const QColor colour = QColorDialog::getColor(m_colour, this, QString());
    if (!colour.isValid() || colour == m_colour)
        return;
    setColour(colour);
    emit colourChanged(colour);
}

void ColourButton::paintEvent(QPaintEvent *event) {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int side = height() - 12;
    const QRectF swatch(7.5, 6.5, side - 1, side - 1);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(isEnabled() ? m_colour : palette().color(QPalette::Disabled, QPalette::Base));
    painter.drawRoundedRect(swatch, 3, 3);
}

FontButton::FontButton(QWidget *parent) : QPushButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QPushButton::clicked, this, &FontButton::choose);
}

void FontButton::setChosenFont(const QFont &chosen) {
    m_font = chosen;
    QString text = QStringLiteral("%1, %2").arg(chosen.family()).arg(chosen.pointSize());
    if (chosen.bold())
        text += QStringLiteral(", ") + tr("bold");
    if (chosen.italic())
        text += QStringLiteral(", ") + tr("italic");
    setText(text);
    QFont shown = chosen;
    shown.setPointSizeF(QWidget::font().pointSizeF());
    setFont(shown);
}

void FontButton::choose() {
    bool accepted = false;
    const QFont font = QFontDialog::getFont(&accepted, m_font, this);
    if (!accepted || font == m_font)
        return;
    setChosenFont(font);
    emit fontChosen(font);
}

namespace {

// The wheel scrolls the page; it changes a value only where the user has gone to.
class WheelGuard : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject *object, QEvent *event) override {
        if (event->type() != QEvent::Wheel || static_cast<QWidget *>(object)->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

int toIntLimit(double limit, int otherwise) {
    if (!(std::fabs(limit) <= double(std::numeric_limits<int>::max())))
        return otherwise;
    return int(limit);
}

PageEditor makeIntEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *box = new QSpinBox(parent);
    const int least = toIntLimit(item.minimum, std::numeric_limits<int>::min());
    const int most = toIntLimit(item.maximum, std::numeric_limits<int>::max());
    // A range that holds nothing means that the owner set no limits.
    box->setRange(least < most ? least : std::numeric_limits<int>::min(),
                  least < most ? most : std::numeric_limits<int>::max());
    box->setValue(item.value.toInt());
    box->setReadOnly(item.readOnly);
    QObject::connect(box, QOverload<int>::of(&QSpinBox::valueChanged), parent, [changed](int) { changed(); });
    return {box, [box] { return QVariant(box->value()); },
            [box](const QVariant &value) {
                const QSignalBlocker quiet(box);
                box->setValue(value.toInt());
            }};
}

PageEditor makeDoubleEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *box = new QDoubleSpinBox(parent);
    box->setDecimals(qBound(0, item.digits, 12));
    const bool limited = item.minimum < item.maximum;
    box->setRange(limited ? item.minimum : -1e11, limited ? item.maximum : 1e11);
    box->setSingleStep(item.step > 0 ? item.step : 1.0);
    box->setValue(item.value.toDouble());
    box->setReadOnly(item.readOnly);
    QObject::connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), parent,
                     [changed](double) { changed(); });
    return {box, [box] { return QVariant(box->value()); },
            [box](const QVariant &value) {
                const QSignalBlocker quiet(box);
                box->setValue(value.toDouble());
            }};
}

PageEditor makeTextEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *line = new QLineEdit(item.value.toString(), parent);
    line->setMaxLength(1023);
    line->setReadOnly(item.readOnly);
    QObject::connect(line, &QLineEdit::textEdited, parent, [changed] { changed(); });
    return {line, [line] { return QVariant(line->text()); },
            [line](const QVariant &value) { line->setText(value.toString()); }};
}

PageEditor makeColourEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *button = new ColourButton(parent);
    button->setColour(item.value.value<QColor>());
    button->setEnabled(!item.readOnly);
    QObject::connect(button, &ColourButton::colourChanged, parent, [changed] { changed(); });
    return {button, [button] { return QVariant(button->colour()); },
            [button](const QVariant &value) { button->setColour(value.value<QColor>()); }};
}

PageEditor makeFontEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *button = new FontButton(parent);
    button->setChosenFont(item.value.value<QFont>());
    button->setEnabled(!item.readOnly);
    QObject::connect(button, &FontButton::fontChosen, parent, [changed] { changed(); });
    return {button, [button] { return QVariant(button->chosenFont()); },
            [button](const QVariant &value) { button->setChosenFont(value.value<QFont>()); }};
}

PageEditor makeListEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *box = new QComboBox(parent);
    box->addItems(item.choices);
    box->setCurrentIndex(item.value.toInt());
    box->setEnabled(!item.readOnly);
    QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), parent,
                     [changed](int) { changed(); });
    return {box, [box] { return QVariant(box->currentIndex()); },
            [box](const QVariant &value) {
                const QSignalBlocker quiet(box);
                box->setCurrentIndex(value.toInt());
            }};
}

PageEditor makeDateTimeEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *edit = new QDateTimeEdit(parent);
    edit->setTimeSpec(Qt::UTC);
    edit->setDisplayFormat(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    edit->setCalendarPopup(true);
    edit->setDateTime(item.value.toDateTime().toUTC());
    edit->setReadOnly(item.readOnly);
    QObject::connect(edit, &QDateTimeEdit::dateTimeChanged, parent, [changed] { changed(); });
    return {edit, [edit] { return QVariant(edit->dateTime()); },
            [edit](const QVariant &value) {
                const QSignalBlocker quiet(edit);
                edit->setDateTime(value.toDateTime().toUTC());
            }};
}

PageEditor makeBooleanEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *box = new QCheckBox(parent);
    box->setChecked(item.value.toBool());
    box->setEnabled(!item.readOnly);
    QObject::connect(box, &QCheckBox::toggled, parent, [changed] { changed(); });
    return {box, [box] { return QVariant(box->isChecked()); },
            [box](const QVariant &value) {
                const QSignalBlocker quiet(box);
                box->setChecked(value.toBool());
            }};
}

// A hosted widget's room: the value is the window id that the owner finds it by. Whatever is set, what stands
// in the room goes back to what it showed when it was kept.
PageEditor makeHostedEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    auto *room = new HostedRoom(changed, parent);
    room->setMinimumSize(qMax(0, item.width), qMax(0, item.height));
    return {room, [room] { return QVariant(quint32(room->winId())); },
            [room](const QVariant &) { room->restore(); }, [room] { room->keep(); }};
}

using MakeEditor = PageEditor (*)(const PageItem &, QWidget *, const std::function<void()> &);
constexpr MakeEditor makers[] = {makeIntEditor,      makeDoubleEditor,  makeTextEditor,
                                 makeColourEditor,   makeFontEditor,    makeListEditor,
                                 makeDateTimeEditor, makeBooleanEditor, makeHostedEditor};

} // namespace

PageEditor makePageEditor(const PageItem &item, QWidget *parent, const std::function<void()> &changed) {
    PageEditor editor = makers[item.kind](item, parent, changed);
    if (editor.widget->focusPolicy() == Qt::WheelFocus) {
        editor.widget->setFocusPolicy(Qt::StrongFocus);
        editor.widget->installEventFilter(new WheelGuard(editor.widget));
    }
    editor.widget->setToolTip(item.description);
    editor.widget->setObjectName(QStringLiteral("editor%1.%2").arg(item.group).arg(item.index));
    return editor;
}

} // namespace desk
