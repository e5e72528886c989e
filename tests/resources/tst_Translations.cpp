// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <algorithm>

namespace {
struct Text {
    QString context;
    QString source;
    QString translation;
    bool finished;
};

QVector<Text> textsOf(const QString &tsPath)
{
    QFile file(tsPath);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        return {};
    QVector<Text> texts;
    const QDomNodeList messages = document.elementsByTagName(QStringLiteral("message"));
    for (int i = 0; i < messages.size(); ++i) {
        const QDomElement message = messages.at(i).toElement();
        const QDomElement translation = message.firstChildElement(QStringLiteral("translation"));
        const QDomElement context = message.parentNode().toElement();
        texts.append({context.firstChildElement(QStringLiteral("name")).text(),
            message.firstChildElement(QStringLiteral("source")).text(), translation.text(),
            !translation.hasAttribute(QStringLiteral("type"))});
    }
    return texts;
}

QStringList placesIn(const QString &text)
{
    static const QRegularExpression place(QStringLiteral("%L?\\d+|%n"));
    QStringList places;
    auto matches = place.globalMatch(text);
    while (matches.hasNext())
        places.append(matches.next().captured());
    std::sort(places.begin(), places.end());
    return places;
}

QStringList tagsIn(const QString &text)
{
    static const QRegularExpression tag(QStringLiteral("</?[A-Za-z]+"));
    QStringList tags;
    auto matches = tag.globalMatch(text);
    while (matches.hasNext())
        tags.append(matches.next().captured());
    return tags;
}

bool endsInBlank(const QString &text)
{
    return !text.isEmpty() && text.back().isSpace();
}

bool beginsWithBlank(const QString &text)
{
    return !text.isEmpty() && text.front().isSpace();
}
} // namespace

class tst_Translations : public QObject {
    Q_OBJECT

private slots:
    void everyTextOfTheSourcesIsTranslated_data() { languages(); }
    void everyTextOfTheSourcesIsTranslated()
    {
        QFETCH(QString, language);
        const QString name = QStringLiteral("ZPanoHead_%1.ts").arg(language);
        QTemporaryDir folder;
        const QString copy = folder.filePath(name);
        QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS "/") + name, copy));

        QProcess lupdate;
        lupdate.setWorkingDirectory(QStringLiteral(SOURCES));
        lupdate.start(QStringLiteral(LUPDATE),
            QStringList{QStringLiteral("-silent")}
                + QStringLiteral(TRANSLATED_FOLDERS).split(QLatin1Char(','))
                + QStringList{QStringLiteral("-ts"), copy});
        QVERIFY(lupdate.waitForFinished(60000));
        QCOMPARE(lupdate.exitCode(), 0);

        QStringList open;
        const QVector<Text> texts = textsOf(copy);
        QVERIFY(!texts.isEmpty());
        for (const Text &text : texts) {
            if (!text.finished)
                open.append(text.context + QLatin1String(": ") + text.source);
        }
        QVERIFY2(open.isEmpty(),
            qPrintable(
                QLatin1String("To translate, or to drop (cmake --build --preset dev --target "
                              "update_translations):\n")
                + open.join(QLatin1Char('\n'))));
    }

    void translationsKeepWhatTheCodeFillsIn_data() { languages(); }
    void translationsKeepWhatTheCodeFillsIn()
    {
        QFETCH(QString, language);
        const auto texts = textsOf(QStringLiteral(TRANSLATIONS "/ZPanoHead_%1.ts").arg(language));
        for (const Text &text : texts) {
            const QByteArray why = (text.source + QLatin1String(" | ") + text.translation).toUtf8();
            QVERIFY2(placesIn(text.source) == placesIn(text.translation), why.constData());
            QVERIFY2(tagsIn(text.source) == tagsIn(text.translation), why.constData());
            QVERIFY2(endsInBlank(text.source) == endsInBlank(text.translation), why.constData());
            QVERIFY2(
                beginsWithBlank(text.source) == beginsWithBlank(text.translation), why.constData());
            QVERIFY2(text.source.count(QLatin1String(";;"))
                    == text.translation.count(QLatin1String(";;")),
                why.constData());
        }
    }

    void builtFileTranslates_data() { languages(); }
    void builtFileTranslates()
    {
        QFETCH(QString, language);
        QTranslator translator;
        QVERIFY(translator.load(
            QStringLiteral("ZPanoHead_") + language, QStringLiteral(MODULE_FOLDER)));
        const auto texts = textsOf(QStringLiteral(TRANSLATIONS "/ZPanoHead_%1.ts").arg(language));
        for (const Text &text : texts) {
            QCOMPARE(translator.translate(
                         text.context.toUtf8().constData(), text.source.toUtf8().constData()),
                text.translation);
        }
    }

private:
    static void languages();
};

void tst_Translations::languages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("German") << QStringLiteral("de");
    QTest::newRow("French") << QStringLiteral("fr");
}

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_Translations.moc"
