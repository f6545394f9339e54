#pragma once
// The start-up every store benchmark program shares: the ratio runner over the command line, the
// generated ten-year device, and the hand-written SQLite baseline's own connection to it. A failed
// start or a check before measuring is printed with the program's name, and main() returns 1.

#include "BenchDevice.h"
#include "DirectStore.h"
#include "RatioRunner.h"

#include <QString>

#include <memory>

class BenchMain {
public:
    // miscRestYears as for BenchDevice.
    BenchMain(int argc, char** argv, int miscRestYears = 0);

    // Generates the device and opens the baseline's connection; false, with the reason printed, on failure.
    bool start();
    // Prints "<program>: text" on standard error; returns main()'s failure code.
    int fail(const QString& text) const;
    // Runs the registered cases (RatioRunner::run).
    int run() { return m_runner.run(); }

    RatioRunner& runner() { return m_runner; }
    BenchDevice& device() { return m_device; }
    DirectStore& direct() { return *m_direct; }

private:
    QString m_program;
    RatioRunner m_runner;
    BenchDevice m_device;
    std::unique_ptr<DirectStore> m_direct;
};
