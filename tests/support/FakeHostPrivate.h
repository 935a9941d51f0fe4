#pragma once
#include "tests/support/FakeHost.h"

#include <QDialog>

/// Answers texts as the host has them: its own first, then those that the module registered.
class FakeHost::Translator : public QTranslator {
public:
    explicit Translator(FakeHost *host) : m_host(host) {}
    QString translate(const char *context, const char *sourceText, const char *, int) const override;
    bool isEmpty() const override { return false; }

private:
    FakeHost *m_host;
};

/// Sees every dialog that comes up and hands it to the test, or closes it.
class FakeHost::DialogWatcher : public QObject {
public:
    explicit DialogWatcher(FakeHost *host);
    ~DialogWatcher() override;
    bool eventFilter(QObject *object, QEvent *event) override;

    std::deque<std::function<void(QDialog *)>> work;

private:
    void handle(QDialog *dialog);

    FakeHost *m_host;
};
