// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reader/ReadingThread.h"

#include "tests/support/FakeHost.h"

#include <QMetaMethod>
#include <QRandomGenerator>
#include <QTest>
#include <functional>
#include <memory>
#include <thread>

namespace {

constexpr int kRounds = 2000;

QStringList paths(const QString &name, int count)
{
    QStringList result;
    for (int i = 0; i < count; ++i)
        result.append(QStringLiteral("/%1/%2.jpg").arg(name).arg(i));
    return result;
}

QStringList pathsOf(const QList<ImageInfo *> &infos)
{
    QStringList result;
    for (const ImageInfo *info : infos)
        result.append(dynamic_cast<const FakeImageInfo &>(*info).path());
    return result;
}

/// Writes down a reader's signals in the moment they are emitted, each with the number of pictures
/// that the host had been asked for by then.
class SignalLog : public QObject {
public:
    explicit SignalLog(ReadingThread &reader)
    {
        const auto record = [this, &reader](auto signal, const char *name) {
            connect(
                &reader, signal, this, [this, name] { note(name); }, Qt::DirectConnection);
        };
        record(&ReadingThread::Loaded, "Loaded");
        record(&ReadingThread::Start, "Start");
        record(&ReadingThread::Done, "Done");
    }

    QString text() const
    {
        const std::lock_guard lock(m_mutex);
        return m_entries.join(QLatin1Char(' '));
    }

private:
    void note(const char *name)
    {
        const int asked = FakeHost::instance().asked().size();
        const std::lock_guard lock(m_mutex);
        m_entries.append(QLatin1String(name) + QString::number(asked));
    }

    mutable std::mutex m_mutex;
    QStringList m_entries;
};

/// A thread that does something as soon as the reader's results have been emptied, while the
/// window's thread may be waiting inside the reader.
std::thread whenEmptied(const ReadingThread &reader, std::function<void()> action)
{
    return std::thread([&reader, action = std::move(action)] {
        while (!reader.GetResults().isEmpty())
            std::this_thread::yield();
        action();
    });
}

} // namespace

class tst_ReadingThread : public QObject {
    Q_OBJECT

private slots:
    void init() { FakeHost::instance().reset(); }

    void metaObject()
    {
        const QMetaObject &meta = ReadingThread::staticMetaObject;
        QByteArrayList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            methods.append(meta.method(i).methodSignature());
        QCOMPARE(methods, (QByteArrayList{"Loaded()", "Start()", "Done()", "Clear()"}));
        QCOMPARE(meta.method(meta.methodCount() - 1).methodType(), QMetaMethod::Slot);
    }

    void read_data()
    {
        QTest::addColumn<QStringList>("chosen");
        QTest::addColumn<QStringList>("unreadable");
        QTest::addColumn<QStringList>("results");
        QTest::addColumn<QString>("announced");

        const auto row
            = [](const char *name, int count, const QVector<int> &bad, const char *announced) {
                  const QStringList chosen = paths(QStringLiteral("a"), count);
                  QStringList unreadable;
                  QStringList results = chosen;
                  for (const int index : bad) {
                      unreadable.append(chosen.at(index));
                      results.removeOne(chosen.at(index));
                  }
                  QTest::newRow(name)
                      << chosen << unreadable << results << QString::fromLatin1(announced);
              };
        row("no pictures", 0, {}, "Start0 Done0");
        row("one", 1, {}, "Start0 Loaded1 Done1");
        row("three", 3, {}, "Start0 Loaded3 Done3");
        row("ten: the last is the tenth", 10, {}, "Start0 Loaded10 Done10");
        row("eleven", 11, {}, "Start0 Loaded10 Loaded11 Done11");
        row("twenty-five", 25, {}, "Start0 Loaded10 Loaded20 Loaded25 Done25");
        row("batches count results, not pictures", 23, {0, 4, 15},
            "Start0 Loaded12 Loaded23 Done23");
        row("unreadable after a batch", 12, {10}, "Start0 Loaded10 Loaded12 Done12");
        row("last one unreadable", 25, {24}, "Start0 Loaded10 Loaded20 Done25");
        row("only the last one readable", 3, {0, 1}, "Start0 Loaded3 Done3");
        row("none readable", 3, {0, 1, 2}, "Start0 Done3");

        const QString a = QStringLiteral("/p/a.jpg");
        const QString b = QStringLiteral("/p/b.jpg");
        const QString upperA = QStringLiteral("/p/A.jpg");
        QTest::newRow("a path given twice is read once, at its first place")
            << QStringList{b, a, b, upperA, a, QString(), b} << QStringList()
            << QStringList{b, a, upperA, QString()} << QStringLiteral("Start0 Loaded4 Done4");
    }
    void read()
    {
        QFETCH(QStringList, chosen);
        QFETCH(QStringList, unreadable);
        QFETCH(QStringList, results);
        QFETCH(QString, announced);
        for (const QString &path : unreadable)
            FakeHost::instance().setUnreadable(path);
        ReadingThread reader;
        const SignalLog log(reader);
        reader.Read(chosen);
        reader.wait();
        QCOMPARE(pathsOf(reader.GetResults()), results);
        QCOMPARE(log.text(), announced);

        // The second run of the same reader knows nothing of the first.
        FakeHost::instance().reset();
        reader.Read({QStringLiteral("/other.jpg")});
        reader.wait();
        QCOMPARE(pathsOf(reader.GetResults()), QStringList{QStringLiteral("/other.jpg")});
        QCOMPARE(log.text(), announced + QStringLiteral(" Start0 Loaded1 Done1"));
    }

    void readWithoutHost()
    {
        FakeHost::instance().setAbsent(true);
        ReadingThread reader;
        const SignalLog log(reader);
        reader.Read(paths(QStringLiteral("a"), 25));
        reader.wait();
        QCOMPARE(reader.GetResults(), QList<ImageInfo *>());
        QCOMPARE(log.text(), QStringLiteral("Start0 Done0"));
    }

    void readManyPaths()
    {
        const QStringList chosen = paths(QStringLiteral("many"), 70000);
        ReadingThread reader;
        reader.Read(chosen + chosen);
        reader.wait();
        QCOMPARE(pathsOf(reader.GetResults()), chosen);
    }

    void resultsWhilePictureIsUnderWay()
    {
        FakeHost &host = FakeHost::instance();
        ReadingThread reader;
        const Gate::Hold hold(host.gate);
        const QStringList chosen = paths(QStringLiteral("a"), 5);
        reader.Read(chosen);
        for (int done = 0; done < chosen.size(); ++done) {
            QVERIFY(host.gate.awaitArrival());
            QCOMPARE(pathsOf(reader.GetResults()), chosen.mid(0, done));
            host.gate.pass();
        }
    }

    void readReplacesListUnderWay_data()
    {
        QTest::addColumn<int>("replacements");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("announced");
        // The first list gives three results; its fourth picture is under way and is dropped.
        QTest::newRow("by twelve") << 1 << 12 << "Start0 Loaded14 Loaded16 Done16";
        QTest::newRow("by six") << 1 << 6 << "Start0 Loaded10 Done10";
        QTest::newRow("by nothing") << 1 << 0 << "Start0 Done4";
        QTest::newRow("several times before the picture is done")
            << 3 << 6 << "Start0 Loaded10 Done10";
    }
    void readReplacesListUnderWay()
    {
        QFETCH(int, replacements);
        QFETCH(int, count);
        QFETCH(QString, announced);
        FakeHost &host = FakeHost::instance();
        ReadingThread reader;
        const SignalLog log(reader);
        QStringList chosen = paths(QStringLiteral("first"), 20);
        {
            const Gate::Hold hold(host.gate);
            reader.Read(chosen);
            host.gate.pass(3);
            QVERIFY(host.gate.awaitArrival());
            for (int i = 0; i < replacements; ++i) {
                chosen = paths(QStringLiteral("next%1").arg(i), count);
                reader.Read(chosen);
                QCOMPARE(reader.GetResults(), QList<ImageInfo *>());
            }
        }
        reader.wait();
        QCOMPARE(pathsOf(reader.GetResults()), chosen);
        QCOMPARE(host.asked(), paths(QStringLiteral("first"), 4) + chosen);
        QCOMPARE(log.text(), announced);
    }

    void readSameListAgainUnderWay()
    {
        FakeHost &host = FakeHost::instance();
        ReadingThread reader;
        const QStringList chosen = paths(QStringLiteral("a"), 3);
        {
            const Gate::Hold hold(host.gate);
            reader.Read(chosen);
            QVERIFY(host.gate.awaitArrival());
            reader.Read(chosen);
        }
        reader.wait();
        QCOMPARE(pathsOf(reader.GetResults()), chosen);
    }

    void readWhileRunIsLeaving_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("a list") << 3;
        QTest::newRow("an empty list") << 0;
    }
    void readWhileRunIsLeaving()
    {
        QFETCH(int, count);
        Gate leaving;
        ReadingThread reader;
        const SignalLog log(reader);
        connect(
            &reader, &ReadingThread::Done, this, [&leaving] { leaving.enter(); },
            Qt::DirectConnection);
        const Gate::Hold hold(leaving);
        reader.Read(paths(QStringLiteral("first"), 2));
        QVERIFY(leaving.awaitArrival());

        std::thread opener = whenEmptied(reader, [&leaving] { leaving.pass(2); });
        const QStringList chosen = paths(QStringLiteral("second"), count);
        reader.Read(chosen);
        opener.join();
        reader.wait();
        QCOMPARE(pathsOf(reader.GetResults()), chosen);
        QCOMPARE(log.text(),
            count == 0 ? QStringLiteral("Start0 Loaded2 Done2 Start2 Done2")
                       : QStringLiteral("Start0 Loaded2 Done2 Start2 Loaded5 Done5"));
    }

    void clearIdle()
    {
        ReadingThread reader;
        const SignalLog log(reader);
        reader.Clear();
        QCOMPARE(log.text(), QStringLiteral("Loaded0"));
        reader.Read(paths(QStringLiteral("a"), 3));
        reader.wait();
        reader.Clear();
        QCOMPARE(reader.GetResults(), QList<ImageInfo *>());
        QCOMPARE(log.text(), QStringLiteral("Loaded0 Start0 Loaded3 Done3 Loaded3"));
    }

    void clearUnderWay()
    {
        FakeHost &host = FakeHost::instance();
        ReadingThread reader;
        const SignalLog log(reader);
        {
            const Gate::Hold hold(host.gate);
            reader.Read(paths(QStringLiteral("a"), 30));
            host.gate.pass(12);
            QVERIFY(host.gate.awaitArrival());
            std::thread opener = whenEmptied(reader, [&host] { host.gate.pass(); });
            reader.Clear();
            opener.join();
            QVERIFY(!reader.isRunning());
            QCOMPARE(reader.GetResults(), QList<ImageInfo *>());
            QCOMPARE(log.text(), QStringLiteral("Start0 Loaded10 Done13 Loaded13"));
        }
        const QStringList chosen = paths(QStringLiteral("b"), 2);
        reader.Read(chosen);
        reader.wait();
        QCOMPARE(pathsOf(reader.GetResults()), chosen);
        QCOMPARE(
            log.text(), QStringLiteral("Start0 Loaded10 Done13 Loaded13 Start13 Loaded15 Done15"));
    }

    void clearRightAfterRead()
    {
        ReadingThread reader;
        const QStringList chosen = paths(QStringLiteral("a"), 12);
        for (int round = 0; round < kRounds; ++round) {
            reader.Read(chosen);
            reader.Clear();
            QVERIFY(!reader.isRunning());
            QCOMPARE(reader.GetResults(), QList<ImageInfo *>());
        }
        reader.Read(chosen);
        reader.wait();
        QCOMPARE(pathsOf(reader.GetResults()), chosen);
    }

    void destroyUnderWay()
    {
        FakeHost &host = FakeHost::instance();
        auto reader = std::make_unique<ReadingThread>();
        const QStringList chosen = paths(QStringLiteral("a"), 5);
        const Gate::Hold hold(host.gate);
        reader->Read(chosen);
        host.gate.pass(2);
        QVERIFY(host.gate.awaitArrival());
        std::thread opener = whenEmptied(*reader, [&host] { host.gate.pass(); });
        reader.reset();
        opener.join();
        QCOMPARE(host.asked(), chosen.mid(0, 3));
    }

    void stressAtRandomMoments()
    {
        QRandomGenerator random(20261);
        ReadingThread reader;
        for (int round = 0; round < kRounds; ++round) {
            const QStringList chosen
                = paths(QStringLiteral("round%1").arg(round), random.bounded(25));
            reader.Read(chosen);
            for (int looks = random.bounded(40); looks > 0; --looks) {
                const QStringList results = pathsOf(reader.GetResults());
                QCOMPARE(results, chosen.mid(0, results.size()));
            }
            if (random.bounded(4) == 0) {
                reader.wait();
                QCOMPARE(pathsOf(reader.GetResults()), chosen);
            }
        }
    }

    /// The window answers every announcement at once: a run that has announced its last result is
    /// on its way out then.
    void stressOnAnnouncement_data()
    {
        QTest::addColumn<bool>("onLoaded");
        QTest::newRow("Loaded") << true;
        QTest::newRow("Done") << false;
    }
    void stressOnAnnouncement()
    {
        QFETCH(bool, onLoaded);
        Gate announced;
        ReadingThread reader;
        const Gate::Hold hold(announced);
        connect(
            &reader, onLoaded ? &ReadingThread::Loaded : &ReadingThread::Done, this,
            [&announced] { announced.pass(); }, Qt::DirectConnection);
        for (int round = 0; round < kRounds; ++round) {
            const QStringList chosen = paths(QStringLiteral("round%1").arg(round), 1 + round % 12);
            reader.Read(chosen);
            QStringList results;
            while (results.size() < chosen.size()) {
                QVERIFY2(announced.enter(), qPrintable(QStringLiteral("lost: %1").arg(round)));
                results = pathsOf(reader.GetResults());
                QCOMPARE(results, chosen.mid(0, results.size()));
            }
        }
    }
};

FAKE_HOST_MAIN(tst_ReadingThread)

#include "tst_ReadingThread.moc"
