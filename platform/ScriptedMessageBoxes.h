#pragma once
// A MessageBoxPresenter for tests: answers from a queue (IDOK when it runs dry) and records every
// box shown, in order. Installs itself for its lifetime.

#include "MessageBoxPresenter.h"

#include <QStringList>

#include <deque>

class ScriptedMessageBoxes : public MessageBoxPresenter {
public:
    ScriptedMessageBoxes();
    ~ScriptedMessageBoxes() override;

    void queueAnswer(int answer) { m_answers.push_back(answer); }
    const QStringList& texts() const { return m_texts; }
    const QStringList& captions() const { return m_captions; }
    void clear();

    int show(QObject* owner, const QString& text, const QString& caption, UINT type) override;

private:
    std::deque<int> m_answers;
    QStringList m_texts;
    QStringList m_captions;
    MessageBoxPresenter* m_previous = nullptr;
};
