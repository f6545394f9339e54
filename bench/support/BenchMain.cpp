#include "BenchMain.h"

#include <QFileInfo>

#include <cstdio>

BenchMain::BenchMain(int argc, char** argv, int miscRestYears)
    : m_program(QFileInfo(QString::fromLocal8Bit(argv[0])).fileName()), m_runner(argc, argv), m_device(miscRestYears) {}

bool BenchMain::start() {
    if (!m_device.create()) {
        fail(m_device.errorText());
        return false;
    }
    m_direct = std::make_unique<DirectStore>(m_device.objectStorePath());
    if (!m_direct->open()) {
        fail(m_direct->errorText());
        return false;
    }
    return true;
}

int BenchMain::fail(const QString& text) const {
    std::fprintf(stderr, "%s: %s\n", qPrintable(m_program), qPrintable(text));
    return 1;
}
