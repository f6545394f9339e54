#include "ImportedHistory.h"

void ImportedDay::set(const DbRecord& props) {
    for (const DbProp& prop : props.props()) {
        set(prop);
    }
}

void ImportedDay::setSecond(const DbRecord& props) {
    for (const DbProp& prop : props.props()) {
        setSecond(prop);
    }
}

bool ImportedHistory::carries(ImportLog log, WORD number) const {
    const auto index = static_cast<size_t>(log);
    return m_carriesAll[index] || m_carried[index].count(number) != 0;
}

void ImportedHistory::addName(const QString& list, const QString& name) {
    if (!name.isEmpty()) {
        m_names[list].insert(name);
    }
}

void ImportedHistory::addSource(const QString& kind, const QString& file) {
    for (auto& [known, files] : m_sources) {
        if (known == kind) {
            files << file;
            return;
        }
    }
    m_sources.emplace_back(kind, QStringList{file});
}

QString ImportedHistory::sourcesText() const {
    QStringList kinds;
    for (const auto& [kind, files] : m_sources) {
        kinds << kind + QStringLiteral(": ") + files.join(QStringLiteral(", "));
    }
    return kinds.join(QStringLiteral("; "));
}
