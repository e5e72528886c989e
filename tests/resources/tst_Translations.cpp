// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <algorithm>

namespace {
struct Message {
    QString context;
    QString source;
    /// One, or the forms for one and for many.
    QStringList translations;
    bool isCounted;
    bool isFinished;
};

QVector<Message> textsOf(const QString &tsPath)
{
    QFile file(tsPath);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        return {};
    QVector<Message> texts;
    const QDomNodeList messages = document.elementsByTagName(QStringLiteral("message"));
    for (int i = 0; i < messages.size(); ++i) {
        const QDomElement message = messages.at(i).toElement();
        const QDomElement translation = message.firstChildElement(QStringLiteral("translation"));
        const QDomElement context = message.parentNode().toElement();
        const bool isCounted = message.hasAttribute(QStringLiteral("numerus"));
        QStringList translations;
        const QDomNodeList forms = translation.elementsByTagName(QStringLiteral("numerusform"));
        for (int form = 0; form < forms.size(); ++form)
            translations += forms.at(form).toElement().text();
        texts.append({context.firstChildElement(QStringLiteral("name")).text(),
            message.firstChildElement(QStringLiteral("source")).text(),
            isCounted ? translations : QStringList(translation.text()), isCounted,
            !translation.hasAttribute(QStringLiteral("type"))});
    }
    return texts;
}

QStringList found(const QString &pattern, const QString &text)
{
    QStringList matches;
    auto each = QRegularExpression(pattern).globalMatch(text);
    while (each.hasNext())
        matches += each.next().captured();
    return matches;
}

/// What a translation must leave as it is, whatever it says: numbers and names that are filled in,
/// in any order, letters to press, tags, patterns of files' names and blanks at both ends.
QString frameOf(const QString &text)
{
    QStringList places = found(QStringLiteral("%L?(\\d+|n)"), text);
    std::sort(places.begin(), places.end());
    return QStringList{places.join(QLatin1Char(' ')),
        QString::number(found(QStringLiteral("&\\S"), text).size()),
        found(QStringLiteral("</?[A-Za-z]+"), text).join(QLatin1Char(' ')),
        found(QStringLiteral("\\(\\*[^)]*\\)|;;"), text).join(QLatin1Char(' ')),
        found(QStringLiteral("^\\s*|\\s*$"), text).join(QLatin1Char('|'))}
        .join(QLatin1Char('\n'));
}
} // namespace

class tst_Translations : public QObject {
    Q_OBJECT

private slots:
    void everyTextOfTheSourcesIsTranslated_data() { catalogues(); }
    void everyTextOfTheSourcesIsTranslated()
    {
        QFETCH(QString, name);
        QFETCH(QString, scope);
        const QTemporaryDir folder;
        const QString copy = folder.filePath(name + QStringLiteral(".ts"));
        QVERIFY(QFile::copy(pathOf(name), copy));

        const Run lupdate = run(LUPDATE,
            words("-silent -I .") + words(scope) + QStringList{QStringLiteral("-ts"), copy},
            {QStringLiteral(SOURCES)});
        QCOMPARE(lupdate.failure(), QByteArray());
        // It passes over what it cannot read, such as a number with a mark between its digits.
        QCOMPARE(lupdate.err, QByteArray());

        QStringList open;
        const QVector<Message> texts = textsOf(copy);
        QVERIFY(!texts.isEmpty());
        for (const Message &text : texts) {
            if (!text.isFinished)
                open.append(text.context + QLatin1String(": ") + text.source);
        }
        QVERIFY2(open.isEmpty(),
            qPrintable(
                QLatin1String("To translate, or to drop (cmake --build --preset dev --target "
                              "update_translations):\n")
                + open.join(QLatin1Char('\n'))));
    }

    void translationsKeepWhatTheCodeFillsIn_data() { catalogues(); }
    void translationsKeepWhatTheCodeFillsIn()
    {
        QFETCH(QString, name);
        for (const Message &text : textsOf(pathOf(name))) {
            QVERIFY2(
                text.translations.size() == (text.isCounted ? 2 : 1), qUtf8Printable(text.source));
            for (const QString &translation : text.translations)
                QVERIFY2(frameOf(translation) == frameOf(text.source),
                    qUtf8Printable(text.source + QLatin1String(" | ") + translation));
        }
    }

    void frenchMarksStayOnTheirLine()
    {
        const QRegularExpression loose(QStringLiteral("[^\u00a0][:;!?»]|«[^\u00a0]"));
        for (const Message &text : textsOf(pathOf(QStringLiteral("panohost_fr")))) {
            for (const QString &translation : text.translations)
                QVERIFY2(!loose.match(translation).hasMatch(), qUtf8Printable(translation));
        }
    }

    void builtFileTranslates_data() { catalogues(); }
    void builtFileTranslates()
    {
        QFETCH(QString, name);
        QFETCH(QString, built);
        QTranslator translator;
        QVERIFY(translator.load(name, built));
        for (const Message &text : textsOf(pathOf(name))) {
            for (int form = 0; form < text.translations.size(); ++form)
                QCOMPARE(
                    translator.translate(text.context.toUtf8().constData(),
                        text.source.toUtf8().constData(), nullptr, text.isCounted ? form + 1 : -1),
                    text.translations[form]);
        }
    }

private:
    static QString pathOf(const QString &name)
    {
        return QStringLiteral(SOURCES "/resources/translations/%1.ts").arg(name);
    }
    static void catalogues();
};

void tst_Translations::catalogues()
{
    const Table<QString, QString, QString> row("name", "scope", "built");
    row("plug-ins, German", "ZPanoHead_de", MODULE_TEXTS, MODULE_FOLDER);
    row("plug-ins, French", "ZPanoHead_fr", MODULE_TEXTS, MODULE_FOLDER);
    row("window, German", "panohost_de", WINDOW_TEXTS, ":/panohost");
    row("window, French", "panohost_fr", WINDOW_TEXTS, ":/panohost");
    row("window, English", "panohost_en", "-pluralonly " WINDOW_TEXTS, ":/panohost");
}

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_Translations.moc"
