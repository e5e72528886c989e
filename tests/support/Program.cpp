// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/Program.h"

#include "tests/support/Files.h"

#include <csignal>

namespace {

/// Milliseconds that no program of the tests needs; CTest itself is hardly more patient.
constexpr int kPatience = 240'000;
/// Milliseconds between two looks.
constexpr int kPause = 20;

} // namespace

QByteArray Run::failure() const
{
    return code == 0 ? QByteArray() : "exit code " + QByteArray::number(code) + '\n' + out + err;
}

QProcessEnvironment bareEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LANG"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    return environment;
}

RunningProgram::RunningProgram(
    const Text &program, const Texts &arguments, const Surroundings &surroundings)
{
    m_process.setWorkingDirectory(surroundings.folder);
    m_process.setProcessEnvironment(surroundings.environment);
    m_process.start(program, arguments);
    m_process.write(surroundings.input);
    m_process.closeWriteChannel();
}

const QByteArray &RunningProgram::complaints()
{
    return m_complaints += m_process.readAllStandardError();
}

bool RunningProgram::await(const std::function<bool()> &isReached)
{
    const auto isOver = [&] {
        m_process.waitForReadyRead(kPause);
        return isReached() || m_process.state() == QProcess::NotRunning;
    };
    return QTest::qWaitFor(isOver, kPatience) && isReached();
}

void RunningProgram::signal(int number) const
{
    // What has ended has no number, and 0 would mean all who run this test.
    if (m_process.processId() > 0)
        ::kill(static_cast<pid_t>(m_process.processId()), number);
}

Run RunningProgram::wait()
{
    m_process.waitForFinished(kPatience);
    QString problem;
    if (m_process.state() != QProcess::NotRunning) {
        problem = QStringLiteral("does not end");
        m_process.kill();
        m_process.waitForFinished(kPatience);
    } else if (m_process.error() == QProcess::FailedToStart) {
        problem = QStringLiteral("cannot be started: ") + m_process.errorString();
    } else if (m_process.exitStatus() != QProcess::NormalExit) {
        problem = QStringLiteral("was ended by signal %1").arg(m_process.exitCode());
    }
    Run run{m_process.exitCode(), m_process.readAllStandardOutput(), complaints()};
    if (!problem.isEmpty()) {
        run.code = -1;
        run.err += '\n' + m_process.program().toUtf8() + ' ' + problem.toUtf8();
    }
    return run;
}

Run run(const Text &program, const Texts &arguments, const Surroundings &surroundings)
{
    return RunningProgram(program, arguments, surroundings).wait();
}

bool isAlive(int process)
{
    const QByteArray state = contentIfThere(QStringLiteral("/proc/%1/stat").arg(process));
    return !state.isEmpty() && !state.contains(") Z ");
}

QStringList words(const Text &text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
