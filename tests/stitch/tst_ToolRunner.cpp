// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/ToolRunner.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <csignal>

namespace {

/// A tool that does what \a script says; $1 is the folder that everything is in.
ToolCall standIn(const QTemporaryDir &folder, const Text &script, const Text &result = "")
{
    return {QStringLiteral("sh"),
        {QStringLiteral("-c"), script, QStringLiteral("sh"), folder.path()},
        result.isEmpty() ? QString() : folder.filePath(result)};
}

ToolRunner::Settings settings(const QTemporaryDir &folder)
{
    ToolRunner::Settings settings;
    settings.log = folder.filePath(QStringLiteral("log.txt"));
    settings.temporaryFolder = folder.path();
    settings.pulse = 10;
    return settings;
}

/// In the environment of this program where it is to do nothing but start tools, and of those.
constexpr const char *kOnlyStarts = "ONLY_STARTS";

int startMany()
{
    const QTemporaryDir folder;
    ToolRunner::Settings many = settings(folder);
    many.jobs = 200;
    const ToolCall sleeper = standIn(folder, ": >\"$ONLY_STARTS\"; exec sleep 1000");
    return int(ToolRunner(many).run(QVector<ToolCall>(many.jobs, sleeper), {}).end);
}

/// The processes that have \a mark as kOnlyStarts.
QStringList processesWith(const QString &mark)
{
    const QByteArray wanted = kOnlyStarts + ('=' + mark.toUtf8());
    QStringList processes
        = QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[1-9]*")}, QDir::Dirs);
    const auto isOther = [&](const QString &process) {
        return !contentIfThere(QStringLiteral("/proc/%1/environ").arg(process)).contains(wanted);
    };
    processes.erase(std::remove_if(processes.begin(), processes.end(), isOther), processes.end());
    return processes;
}

} // namespace

class tst_ToolRunner : public QObject {
    Q_OBJECT

private slots:
    void failures_data()
    {
        const Table<QString, QString> row("script", "problem");
        row("well", "echo x >$1/out", "");
        row("exit code", "echo one; echo 'no such picture' >&2; exit 3",
            "sh failed with exit code 3: \"no such picture\"; its log is LOG");
        row("last line without an end", "echo one; printf two; exit 1",
            "sh failed with exit code 1: \"two\"; its log is LOG");
        row("without a word", "exit 255", "sh failed with exit code 255; its log is LOG");
        row("crash", "echo x >$1/out; kill -SEGV $$", "sh was ended by signal 11; its log is LOG");
        row("no result", "echo all is well",
            "sh ended with exit code 0, but did not write OUT: \"all is well\"; its log is LOG");
        row("empty result", ": >$1/out",
            "sh ended with exit code 0, but did not write OUT; its log is LOG");
        row("folder as result", "mkdir $1/out",
            "sh ended with exit code 0, but did not write OUT; its log is LOG");
        row("hangs", "echo loading; exec sleep 1000", "sh hangs: \"loading\"; its log is LOG");
        row("computes and says nothing",
            "i=0; while [ $i -lt 400000 ]; do i=$((i+1)); done; echo x >$1/out", "");
    }
    void failures()
    {
        QFETCH(QString, script);
        QFETCH(QString, problem);
        const QTemporaryDir folder;
        ToolRunner::Settings patient = settings(folder);
        patient.patience = 200;
        const QString out = folder.filePath(QStringLiteral("out"));
        const ToolOutcome outcome = ToolRunner(patient).run({standIn(folder, script, "out")}, {});
        problem.replace(QStringLiteral("LOG"), patient.log).replace(QStringLiteral("OUT"), out);
        QCOMPARE(outcome.problem, problem);
        QCOMPARE(
            outcome.end, problem.isEmpty() ? ToolOutcome::End::Done : ToolOutcome::End::Failed);
    }

    void programThatIsNotThere()
    {
        const QTemporaryDir folder;
        const QString missing = QStringLiteral("no-such-tool");
        const ToolOutcome outcome = ToolRunner(settings(folder)).run({{missing, {}, {}}}, {});
        QCOMPARE(outcome.end, ToolOutcome::End::Failed);
        QVERIFY2(outcome.problem.startsWith(QStringLiteral("no-such-tool could not be started")),
            qUtf8Printable(outcome.problem));
        QCOMPARE(missingTools({QStringLiteral("sh"), QStringLiteral("sh")}), QString());
        QVERIFY(missingTools({QStringLiteral("sh"), missing})
                    .startsWith(QStringLiteral("no-such-tool is missing; ")));
    }

    void nothingOutlivesTheRun_data()
    {
        const Table<QString, bool> row("script", "isCancelled");
        const char *simple = "echo $$ >$1/pid; echo go; exec sleep 1000";
        const char *grandchild = "sleep 1000 & echo $! >$1/pid; echo go; wait";
        const char *deaf = "trap '' TERM; sleep 1000 & echo $! >$1/pid; echo go; wait; wait";
        for (const char *script : {simple, grandchild, deaf}) {
            row(script, true);
            row((QByteArray("fails beside ") + script).constData(), script, false);
        }
    }
    /// Cancelled, or stopped because the call beside it fails.
    void nothingOutlivesTheRun()
    {
        QFETCH(QString, script);
        QFETCH(bool, isCancelled);
        const QTemporaryDir folder;
        ToolRunner::Settings two = settings(folder);
        two.jobs = 2;
        bool isUp = false;
        ToolRunner::Listener listener;
        listener.keepOn = [&] { return !(isUp && isCancelled); };
        listener.line = [&](int call, const QByteArray &) { isUp |= call == 0; };
        QVector<ToolCall> calls{standIn(folder, script)};
        if (!isCancelled)
            calls.append(
                standIn(folder, "mkfifo $1/gate; while [ ! -s $1/pid ]; do :; done; exit 4"));
        calls.append(standIn(folder, "echo x >$1/never"));
        if (isCancelled)
            two.jobs = 1;
        const ToolOutcome outcome = ToolRunner(two).run(calls, listener);
        QCOMPARE(outcome.end, isCancelled ? ToolOutcome::End::Cancelled : ToolOutcome::End::Failed);
        QCOMPARE(outcome.problem.contains(QStringLiteral("exit code 4")), !isCancelled);
        const QByteArray process = fileContent(folder.filePath(QStringLiteral("pid")));
        QTRY_VERIFY(!isAlive(process.trimmed().toInt()));
        QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("never"))));
    }

    /// Killed in the midst of starting tools, when some have only just begun to be processes.
    void nothingOutlivesAKill()
    {
        for (int round = 0; round < 10; ++round) {
            const QTemporaryDir folder;
            const QString mark = folder.filePath(QStringLiteral("up"));
            Surroundings marked{folder.path()};
            marked.environment.insert(QLatin1String(kOnlyStarts), mark);
            marked.environment.insert(QStringLiteral("TMPDIR"), folder.path());
            RunningProgram starter(QCoreApplication::applicationFilePath(), {}, marked);
            QVERIFY2(starter.await([&] { return QFile::exists(mark); }), starter.complaints());
            starter.signal(SIGKILL);
            starter.wait();
            QTRY_COMPARE(processesWith(mark), QStringList());
        }
    }

    /// Each opens its end of a pipe, which blocks until the other has come, too.
    void runsSeveralAtATime()
    {
        const QTemporaryDir folder;
        ToolRunner::Settings two = settings(folder);
        two.jobs = 2;
        QVector<int> done;
        ToolRunner::Listener listener;
        listener.done = [&done](int call) {
            done.append(call);
            return QString();
        };
        QCOMPARE(ToolRunner(two)
                     .run({standIn(folder, "mkfifo $1/a; echo x >$1/a"),
                              standIn(folder, "while [ ! -p $1/a ]; do :; done; cat <$1/a"),
                              standIn(folder, "exit 0")},
                         listener)
                     .problem,
            QString());
        std::sort(done.begin(), done.end());
        QCOMPARE(done, QVector<int>({0, 1, 2}));
    }

    void linesAndLog()
    {
        const QTemporaryDir folder;
        QList<QByteArray> lines;
        ToolRunner::Listener listener;
        listener.line = [&lines](int, const QByteArray &line) { lines.append(line); };
        listener.done = [](int call) {
            return call == 0 ? QString() : QStringLiteral("not what was wanted");
        };
        const ToolRunner runner(settings(folder));
        const ToolOutcome outcome = runner.run(
            {standIn(folder, "printf 'a\\r1 %%\\r2 %%\\n\\n'; printf 'b\u00e9' >&2"),
                standIn(folder, "pwd >/dev/null; echo \"$TMPDIR\""), standIn(folder, "echo never")},
            listener);
        QCOMPARE(outcome.problem, QStringLiteral("not what was wanted"));
        QCOMPARE(
            lines, QList<QByteArray>({"a", "1 %", "2 %", "b\xc3\xa9", folder.path().toUtf8()}));
        const QByteArray log = fileContent(folder.filePath(QStringLiteral("log.txt")));
        QVERIFY(log.startsWith("$ sh -c "));
        QVERIFY(log.contains("\nb\xc3\xa9$ sh"));
        QVERIFY(!log.contains("never"));
    }
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (qEnvironmentVariableIsSet(kOnlyStarts))
        return startMany();
    tst_ToolRunner test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ToolRunner.moc"
