// Renders SVG files at their own size into PNG files beside them: render FILE.svg ...
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char **argv) {
    QGuiApplication application(argc, argv);
    for (int i = 1; i < argc; ++i) {
        const QString source = QString::fromLocal8Bit(argv[i]);
        QSvgRenderer renderer(source);
        if (!renderer.isValid()) {
            std::fprintf(stderr, "%s cannot be read as SVG.\n", argv[i]);
            return 2;
        }
        QImage image(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter);
        painter.end();
        QString target = source;
        target.replace(target.size() - 4, 4, ".png");
        if (!image.convertToFormat(QImage::Format_ARGB32).save(target, "PNG")) {
            std::fprintf(stderr, "%s cannot be written.\n", qPrintable(target));
            return 2;
        }
    }
    return 0;
}
