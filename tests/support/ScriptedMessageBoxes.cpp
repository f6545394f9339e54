#include "ScriptedMessageBoxes.h"

#include "MessageBox.h"

ScriptedMessageBoxes::ScriptedMessageBoxes() : m_previous(setMessageBoxPresenter(this)) {}

ScriptedMessageBoxes::~ScriptedMessageBoxes() {
    setMessageBoxPresenter(m_previous);
}

void ScriptedMessageBoxes::clear() {
    m_answers.clear();
    m_texts.clear();
    m_captions.clear();
}

int ScriptedMessageBoxes::show(QObject* /*owner*/, const QString& text, const QString& caption, UINT /*type*/) {
    m_texts.append(text);
    m_captions.append(caption);
    if (m_answers.empty()) {
        return IDOK;
    }
    const int answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}
