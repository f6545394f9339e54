#include "MessageBox.h"

#include <cstdio>

namespace {
MessageBoxPresenter*& installedPresenter() {
    static MessageBoxPresenter* presenter = nullptr;
    return presenter;
}

// The answer of the box's default button, always its first.
int defaultAnswer(UINT type) {
    return (type & MB_TYPEMASK) == MB_YESNO ? IDYES : IDOK;
}
} // namespace

int MessageBoxW(QObject* owner, const QString& text, const QString& caption, UINT type) {
    if (MessageBoxPresenter* presenter = installedPresenter()) {
        return presenter->show(owner, text, caption, type);
    }
    // No screen to show it on (a tool, a test without a presenter): the message still reaches the user.
    std::fprintf(stderr, "%s: %s\n", caption.toLocal8Bit().constData(), text.toLocal8Bit().constData());
    return defaultAnswer(type);
}

MessageBoxPresenter* setMessageBoxPresenter(MessageBoxPresenter* presenter) {
    MessageBoxPresenter* previous = installedPresenter();
    installedPresenter() = presenter;
    return previous;
}
