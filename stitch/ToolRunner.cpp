// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/ToolRunner.h"

#include "align/OutputFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <pthread.h>
#include <unistd.h>
#include <vector>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace {

struct ToolTexts {
    Q_DECLARE_TR_FUNCTIONS(ToolRunner)
};

/// How long a program may take to end when it is asked to.
constexpr int kGrace = 2000;
/// A program's last line is told up to here.
constexpr int kToldCharacters = 200;

/// This process while its thread starts a program, else 0.
thread_local pid_t t_starter = 0;

/// A group of its own: all of it can be ended, and Ctrl+C reaches only this process, which then
/// ends the group in order. Where this process is killed, the program ends with it.
void leadGroup()
{
    if (t_starter == 0)
        return;
    ::setpgid(0, 0);
#ifdef Q_OS_LINUX
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // Who is dead by now sends no signal any more.
    if (::getppid() != t_starter)
        ::_exit(EXIT_FAILURE);
#endif
}

/// Qt starts a child that has code of ours to run by fork(), and that child waits for word from its
/// parent before it does anything else: for ever, and with all files and locks open, where the
/// parent is killed in between. So it leads its group from its first moment.
void leadGroupsFromTheFork()
{
    static const int done = ::pthread_atfork(nullptr, nullptr, leadGroup);
    Q_UNUSED(done)
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
class ToolProcess final : public QProcess {
protected:
    void setupChildProcess() override { leadGroup(); }
};
#else
class ToolProcess final : public QProcess {
public:
    ToolProcess() { setChildProcessModifier(leadGroup); }
};
#endif

/// Time that the processes of \a group have computed so far, in ticks; 0 where the system does not
/// tell.
quint64 computedBy(qint64 group)
{
    quint64 ticks = 0;
    const QStringList processes
        = QDir(QStringLiteral("/proc"))
              .entryList({QStringLiteral("[1-9]*")}, QDir::Dirs, QDir::NoSort);
    for (const QString &process : processes) {
        QFile file(QStringLiteral("/proc/%1/stat").arg(process));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray stat = file.readAll();
        // The name in brackets, the second field, may hold anything.
        const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        constexpr int kGroup = 2;
        constexpr int kTimes = 11; // User, system, and both of the children that have ended.
        if (fields.size() < kTimes + 4 || fields.at(kGroup).toLongLong() != group)
            continue;
        for (int i = 0; i < 4; ++i)
            ticks += fields.at(kTimes + i).toULongLong();
    }
    return ticks;
}

struct Job {
    ToolProcess process;
    int call = 0;
    /// 0 when it was not started.
    pid_t group = 0;
    QByteArray unfinishedLine;
    QByteArray lastLine;
    QElapsedTimer sinceSignOfLife;
    quint64 computed = 0;
    bool isOver = false;
};

/// One ToolRunner::run().
class Run {
public:
    Run(const ToolRunner::Settings &settings, const QVector<ToolCall> &calls,
        const ToolRunner::Listener &listener)
        : m_settings(settings)
        , m_calls(calls)
        , m_listener(listener)
        , m_log(settings.log)
    {
    }

    ToolOutcome go()
    {
        if (!m_log.open(QIODevice::Append))
            return {ToolOutcome::End::Failed, unwritable(m_log.fileName(), m_log.errorString())};
        QTimer pulse;
        QObject::connect(&pulse, &QTimer::timeout, &m_loop, [this] {
            checkForHang();
            advance();
        });
        pulse.start(m_settings.pulse);
        advance();
        if (!isAtEnd())
            m_loop.exec();
        endAll();
        return m_outcome;
    }

private:
    bool isAtEnd() const
    {
        return m_outcome.end != ToolOutcome::End::Done
            || (m_jobs.empty() && m_next == m_calls.size());
    }

    /// Starts what may be started.
    void advance()
    {
        m_jobs.erase(std::remove_if(m_jobs.begin(), m_jobs.end(),
                         [](const std::unique_ptr<Job> &job) { return job->isOver; }),
            m_jobs.end());
        if (m_outcome.end == ToolOutcome::End::Done && m_listener.keepOn && !m_listener.keepOn())
            m_outcome.end = ToolOutcome::End::Cancelled;
        while (!isAtEnd() && m_next < m_calls.size() && int(m_jobs.size()) < m_settings.jobs)
            start(m_next++);
        if (isAtEnd())
            m_loop.quit();
    }

    void start(int call)
    {
        const ToolCall &tool = m_calls.at(call);
        m_jobs.push_back(std::make_unique<Job>());
        Job &job = *m_jobs.back();
        job.call = call;
        job.sinceSignOfLife.start();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TMPDIR"), m_settings.temporaryFolder);
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        const int share = std::max(1, QThread::idealThreadCount() / std::max(1, m_settings.jobs));
        environment.insert(QStringLiteral("OMP_NUM_THREADS"), QString::number(share));
        job.process.setProcessEnvironment(environment);
        job.process.setProcessChannelMode(QProcess::MergedChannels);
        job.process.setStandardInputFile(QProcess::nullDevice());
        QObject::connect(
            &job.process, &QProcess::readyRead, &m_loop, [this, &job] { readOutput(job); });
        QObject::connect(&job.process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished),
            &m_loop, [this, &job] { finish(job); });
        QObject::connect(&job.process, &QProcess::errorOccurred, &m_loop,
            [this, &job](QProcess::ProcessError error) {
                if (error == QProcess::FailedToStart)
                    fail(job, ToolTexts::tr("%1 could not be started"));
            });
        m_log.write("$ " + tool.program.toUtf8() + ' '
            + tool.arguments.join(QLatin1Char(' ')).toUtf8() + '\n');
        m_log.flush();
        leadGroupsFromTheFork();
        t_starter = ::getpid();
        job.process.start(tool.program, tool.arguments);
        t_starter = 0;
        job.group = pid_t(job.process.processId());
    }

    void readOutput(Job &job)
    {
        job.sinceSignOfLife.start();
        const QByteArray output = job.process.readAll();
        m_log.write(output);
        m_log.flush();
        job.unfinishedLine += output;
        while (true) {
            const auto isEnd = [](char c) { return c == '\n' || c == '\r'; };
            const auto end
                = std::find_if(job.unfinishedLine.cbegin(), job.unfinishedLine.cend(), isEnd);
            if (end == job.unfinishedLine.cend())
                break;
            const int length = int(end - job.unfinishedLine.cbegin());
            takeLine(job, job.unfinishedLine.left(length));
            job.unfinishedLine.remove(0, length + 1);
        }
    }

    void takeLine(Job &job, const QByteArray &line)
    {
        if (line.trimmed().isEmpty())
            return;
        // enblend's informations say least, and come last.
        if (job.lastLine.isEmpty() || !line.contains(": info: "))
            job.lastLine = line.trimmed();
        if (m_listener.line)
            m_listener.line(job.call, line);
    }

    void finish(Job &job)
    {
        readOutput(job);
        takeLine(job, job.unfinishedLine);
        const QProcess &process = job.process;
        const QString &result = m_calls.at(job.call).result;
        if (process.exitStatus() == QProcess::CrashExit)
            return fail(job, ToolTexts::tr("%1 was ended by signal %2"),
                QString::number(process.exitCode()));
        if (process.exitCode() != 0)
            return fail(job, ToolTexts::tr("%1 failed with exit code %2"),
                QString::number(process.exitCode()));
        if (!result.isEmpty() && (!QFileInfo(result).isFile() || QFileInfo(result).size() == 0))
            return fail(
                job, ToolTexts::tr("%1 ended with exit code 0, but did not write %2"), result);
        const QString problem = m_listener.done ? m_listener.done(job.call) : QString();
        if (!problem.isEmpty())
            setOutcome({ToolOutcome::End::Failed, problem});
        job.isOver = true;
        // Not from here: the job is destroyed in it, and its process is still speaking.
        QTimer::singleShot(0, &m_loop, [this] { advance(); });
    }

    /// \a what happened to the program, %1, and with what, %2.
    void fail(Job &job, const QString &what, const QString &detail = {})
    {
        const QString program = QFileInfo(m_calls.at(job.call).program).fileName();
        QString problem = detail.isNull() ? what.arg(program) : what.arg(program, detail);
        if (!job.lastLine.isEmpty())
            problem += QStringLiteral(": \"%1\"")
                           .arg(QString::fromUtf8(job.lastLine).left(kToldCharacters));
        setOutcome({ToolOutcome::End::Failed,
            ToolTexts::tr("%1; its log is %2")
                .arg(problem, QDir::toNativeSeparators(m_log.fileName()))});
        m_loop.quit();
    }

    /// The first thing that goes wrong counts; what follows is its consequence.
    void setOutcome(const ToolOutcome &outcome)
    {
        if (m_outcome.end == ToolOutcome::End::Done)
            m_outcome = outcome;
    }

    void checkForHang()
    {
        for (const std::unique_ptr<Job> &job : m_jobs) {
            if (job->isOver || job->sinceSignOfLife.elapsed() < m_settings.patience)
                continue;
            const quint64 computed = computedBy(job->group);
            if (computed == job->computed)
                return fail(*job, ToolTexts::tr("%1 hangs"));
            job->computed = computed;
            job->sinceSignOfLife.start();
        }
    }

    /// What has not ended well is ended, with all that it started.
    void endAll()
    {
        for (const std::unique_ptr<Job> &job : m_jobs)
            job->process.disconnect();
        for (const int signal : {SIGTERM, SIGKILL}) {
            for (const std::unique_ptr<Job> &job : m_jobs) {
                if (!job->isOver && job->group > 0)
                    ::kill(-job->group, signal);
            }
            for (const std::unique_ptr<Job> &job : m_jobs) {
                if (job->process.state() != QProcess::NotRunning)
                    job->process.waitForFinished(kGrace);
            }
        }
    }

    const ToolRunner::Settings &m_settings;
    const QVector<ToolCall> &m_calls;
    const ToolRunner::Listener &m_listener;
    QFile m_log;
    QEventLoop m_loop;
    std::vector<std::unique_ptr<Job>> m_jobs;
    int m_next = 0;
    ToolOutcome m_outcome;
};

} // namespace

ToolOutcome ToolRunner::run(const QVector<ToolCall> &calls, const Listener &listener) const
{
    return Run(m_settings, calls, listener).go();
}

QString missingTools(const QStringList &programs)
{
    QStringList missing;
    QStringList packages;
    for (const QString &program : programs) {
        if (!QStandardPaths::findExecutable(program).isEmpty())
            continue;
        missing.append(program);
        const bool isOwnPackage
            = program == QLatin1String("enblend") || program == QLatin1String("enfuse");
        packages.append(isOwnPackage ? program : QStringLiteral("hugin-tools"));
    }
    missing.removeDuplicates();
    packages.removeDuplicates();
    if (missing.isEmpty())
        return {};
    return (missing.size() == 1
            ? ToolTexts::tr("%1 is missing; Debian has it in: apt-get install %2")
            : ToolTexts::tr("%1 are missing; Debian has them in: apt-get install %2"))
        .arg(missing.join(ToolTexts::tr(" and ")), packages.join(QLatin1Char(' ')));
}
