#include "host/window/InformationPanel.h"
#include "host/window/Theme.h"
#include <QEvent>
#include <QLabel>
#include <QScrollArea>

namespace desk {

InformationPanel::InformationPanel(QWidget *parent) : QDockWidget(parent) {
    setObjectName(QStringLiteral("informationPanel"));
    m_text = new QLabel;
    m_text->setObjectName(QStringLiteral("informationText"));
    m_text->setTextFormat(Qt::RichText);
    m_text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_text->setMargin(8);
    m_text->setAutoFillBackground(true);
    m_scroll = new QScrollArea(this);
    m_scroll->setWidget(m_text);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    setWidget(m_scroll);
    retranslate();
}

void InformationPanel::showLines(const std::vector<LocatorLine> &lines, const QColor &background) {
    m_lines = lines;
    QString html;
    for (const LocatorLine &line : lines) {
        QString text = line.text.toHtmlEscaped();
        text.replace(QLatin1Char('\n'), QLatin1String("<br>"));
        text.replace(QLatin1Char('\t'), QLatin1String("&nbsp;&nbsp;"));
        const int size = line.pointSize > 0 ? line.pointSize : 8;
        html += QStringLiteral("<div style=\"color:%1;font-size:%2pt\">%3</div>")
                    .arg(theme::readable(line.colour, background).name())
                    .arg(size + 1)
                    .arg(text.trimmed().isEmpty() ? QStringLiteral("&nbsp;") : text);
    }
    m_text->setText(html);
    QPalette colours = m_text->palette();
    colours.setColor(QPalette::Window, background);
    m_text->setPalette(colours);
}

QString InformationPanel::text() const {
    QStringList texts;
    for (const LocatorLine &line : m_lines)
        texts << line.text;
    return texts.join(QLatin1Char('\n'));
}

void InformationPanel::changeEvent(QEvent *event) {
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void InformationPanel::retranslate() {
    setWindowTitle(tr("Information"));
}

} // namespace desk
