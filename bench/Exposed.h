#pragma once

#include <QApplication>
#include <QWidget>
#include <QWindow>
#include <cstdio>
#include <cstdlib>

// A window paints only once the window system shows it: waits for that, or ends the run.
inline void showExposed(QWidget &widget) {
    widget.show();
    for (int i = 0; i < 1000; ++i) {
        QApplication::processEvents();
        if (widget.windowHandle() && widget.windowHandle()->isExposed())
            return;
    }
    std::fprintf(stderr, "a window is not exposed: nothing would be painted\n");
    std::exit(2);
}
