// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/OutputFile.h"
#include "apps/panohost/Module.h"
#include "apps/panohost/window/HeadModule.h"
#include "apps/panohost/window/HostApplication.h"
#include "apps/panohost/window/ImportAdvice.h"
#include "apps/panohost/window/MainWindow.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDialogButtonBox>
#include <QLibraryInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <cstdio>

namespace {

QString adviceFor(int shots)
{
    ImportState state;
    state.wantsFile = true;
    state.file.path = QStringLiteral("/s.xml");
    state.file.shots = shots;
    return adviceFor(state).text;
}

/// Says what the window would where the user's settings are the environment's: who is told what
/// language, then texts of the window, of a plug-in, of Qt, with numbers, and of a library.
int speak(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("ZPanoHead tests"));
    HostApplication application(argc, argv);
    const HeadModule module(findModule());
    const MainWindow window(application, module);
    const QDialogButtonBox buttons(QDialogButtonBox::Cancel);
    const QStringList said{application.GetLocale().name(),
        window.findChild<QPushButton *>(QStringLiteral("forget"))->text(),
        module.imports().front().about().GetDescription(),
        QString(buttons.button(QDialogButtonBox::Cancel)->text()).remove(QLatin1Char('&')),
        adviceFor(1), adviceFor(12345), OutputGuard({}).objection(QStringLiteral("/"))};
    std::fputs(said.join(QLatin1Char('\n')).toUtf8().constData(), stdout);
    return 0;
}

} // namespace

/// The language that the user's settings make the window speak. Each window is a program of its
/// own: Qt reads the settings once.
class tst_WindowLanguage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QString texts = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
        for (const char *name : {"qtbase_de.qm", "qtbase_fr.qm"})
            QVERIFY2(QFileInfo::exists(texts + QLatin1Char('/') + QLatin1String(name)),
                "Qt's own translations are missing: apt-get install qttranslations5-l10n (Qt 6: "
                "qt6-translations-l10n)");
    }

    void isTheUsers_data()
    {
        const auto german = [](const char *locale, const char *number) {
            return QStringLiteral(
                "%1\n&Diese Dateien vergessen\nImport-Plug-in für Clauss Rodeon\nAbbrechen\n"
                "Der Kopf hat 1 Bild aufgenommen. Das Bild hier ablegen oder unten auswählen.\n"
                "Der Kopf hat %2 Bilder aufgenommen. Die Bilder hier ablegen oder unten "
                "auswählen.\nist ein Ordner")
                .arg(Text(locale), Text(number));
        };
        const auto french = [](const char *locale, const char *number) {
            return QStringLiteral(
                "%1\n&Oublier ces fichiers\nModule d’import Clauss Rodeon\nAnnuler\n"
                "La tête a pris 1 image. Déposez-la ici, ou choisissez-la ci-dessous.\n"
                "La tête a pris %2 images. Déposez-les ici, ou choisissez-les ci-dessous.\n"
                "est un dossier")
                .arg(Text(locale), Text(number));
        };
        const auto english = [](const char *locale, const char *number) {
            return QStringLiteral(
                "%1\n&Forget these files\nClauss Rodeon import plugin\nCancel\n"
                "The head took 1 picture. Drop it here, or choose it below.\n"
                "The head took %2 pictures. Drop them here, or choose them below.\n"
                "is a folder")
                .arg(Text(locale), Text(number));
        };
        const Table<QString, QString, QString> row("lang", "languages", "says");
        row("German", "de_DE.UTF-8", "", german("de_DE", "12.345"));
        row("German of Switzerland", "de_CH.UTF-8", "", german("de_CH", "12’345"));
        row("French of Canada", "fr_CA.UTF-8", "", french("fr_CA", "12\u00a0345"));
        row("English", "en_GB.UTF-8", "", english("en_GB", "12,345"));
        row("nothing set", "C", "", english("en_US", "12,345"));
        row("a language not spoken", "es_ES.UTF-8", "", english("en_US", "12.345"));
        row("several languages", "en_US.UTF-8", "fr:de", french("fr_FR", "12,345"));
        row("one not spoken before one that is", "es_ES.UTF-8", "es:de_AT",
            german("de_AT", "12.345"));
        row("English before one that has more texts", "de_DE.UTF-8", "en_GB:de",
            english("en_GB", "12.345"));
    }
    void isTheUsers()
    {
        QFETCH(QString, lang);
        QFETCH(QString, languages);
        const QTemporaryDir home;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString &name : environment.keys()) {
            if (name.startsWith(QLatin1String("LC_")))
                environment.remove(name);
        }
        environment.insert(QStringLiteral("LANG"), lang);
        environment.insert(QStringLiteral("LANGUAGE"), languages);
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path());
        const Run window
            = run(QCoreApplication::applicationFilePath(), {"speak"}, {{}, {}, environment});
        QCOMPARE(window.failure(), QByteArray());
        QTEST(QString::fromUtf8(window.out), "says");
    }
};

int main(int argc, char **argv)
{
    if (argc == 2 && qstrcmp(argv[1], "speak") == 0)
        return speak(argc, argv);
    QCoreApplication application(argc, argv);
    tst_WindowLanguage test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_WindowLanguage.moc"
