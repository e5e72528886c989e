// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Drives panohost's window through imports of all heads and keeps a picture of each step.

#include "apps/panohost/Module.h"
#include "apps/panohost/window/HeadModule.h"
#include "apps/panohost/window/MainWindow.h"
#include "apps/panohost/window/MapView.h"
#include "apps/screenshots/WindowDriver.h"

#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSemaphore>
#include <QSettings>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWizardPage>
#include <cstdio>

namespace {

[[noreturn]] void fail(const QString &reason)
{
    std::fprintf(stderr, "screenshots: %s\n", qPrintable(reason));
    std::exit(1);
}

void demand(bool isDone, const char *what)
{
    if (!isDone)
        fail(QString::fromLatin1(what));
}

class Session {
public:
    /// \a shootings holds a folder a head.
    Session(const QString &folder, const QString &shootings, DrivenHost &host)
        : m_folder(folder)
        , m_host(host)
        , m_shootings(shootings)
        , m_module(findModule())
        , m_window(host, m_module)
        , m_driver(m_window)
    {
        demand(m_module.problem().isEmpty(), "the module cannot be loaded");
        m_window.resize(820, 900);
        m_window.show();
        demand(QTest::qWaitForWindowExposed(&m_window), "the window does not show");
    }

    void shoot(const QString &name, QWidget *widget = nullptr)
    {
        QTest::qWait(50); // Fades of the style, layouts that are due.
        const QPixmap picture = (widget ? widget : &m_window)->grab();
        demand(picture.save(m_folder.filePath(name + QStringLiteral(".png"))),
            "a picture cannot be written");
    }

    void all()
    {
        const QString papywizard = m_shootings.filePath(QStringLiteral("papywizard"));
        shoot(QStringLiteral("start"));
        choosesHead(papywizard);
        demand(m_driver.waitForPictures(), "pictures are not read");
        tabs(QStringLiteral("papywizard"));
        imports();
        cannotRead(papywizard);
        for (const char *head : {"Clauss", "Gigapan", "VRDrive2"}) {
            const QString name = QString::fromLatin1(head).toLower();
            demand(m_driver.click(QLatin1String(head)), "a head cannot be chosen");
            demand(m_driver.drop({m_shootings.filePath(name)}), "a shooting is not taken");
            demand(m_driver.waitForPictures(), "pictures are not read");
            tabs(name);
            leave();
        }
    }

private:
    void choosesHead(const QString &shooting)
    {
        demand(m_driver.drop({shooting}), "the shooting is not taken");
        shoot(QStringLiteral("dropped"));
        demand(m_driver.click(QStringLiteral("Papywizard")), "Papywizard cannot be chosen");
    }

    void tabs(const QString &name)
    {
        auto *tabs = m_driver.page()->findChild<QTabWidget *>();
        demand(tabs, "the page has no tabs");
        demand(WindowDriver::waitFor([this] { return !m_driver.button(QStringLiteral("stop")); }),
            "the bar does not go");
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            shoot(QStringLiteral("%1-%2").arg(name).arg(i + 1));
        }
        tabs->setCurrentIndex(0);
    }

    void imports()
    {
        int number = WindowDriver::withDialogs(
            [this] { demand(m_driver.click(QStringLiteral("import")), "no import"); },
            [this](QWidget *dialog, int) {
                shoot(QStringLiteral("save"), dialog);
                if (auto *files = qobject_cast<QFileDialog *>(dialog))
                    static_cast<QDialog *>(files)->accept();
            });
        demand(number == 1, "the import does not ask for one place");
        const auto *map = m_window.findChild<MapView *>();
        m_window.grab(); // What is drawn asks for the pictures it shows.
        demand(WindowDriver::waitFor([map] { return !map->isLoading(); }), "the map is not drawn");
        shoot(QStringLiteral("summary"));
        finishes();
        demand(m_driver.click(QStringLiteral("another")), "there is no way back");
    }

    void finishes()
    {
        demand(m_driver.click(QStringLiteral("align")), "no alignment");
        demand(WindowDriver::waitFor([this] { return !isBusy(); }), "the alignment does not end");
        shoot(QStringLiteral("aligned"));
        demand(m_driver.click(QStringLiteral("preview")), "no preview");
        demand(WindowDriver::waitFor([this] { return !isBusy(); }), "the preview is not made");
        const auto switchLines = [this] {
            for (const char *lines : {"outlines", "seams"})
                demand(m_driver.click(QLatin1String(lines)), "no outlines or seams");
        };
        switchLines();
        shoot(QStringLiteral("preview"));
        switchLines();
        WindowDriver::withDialogs(
            [this] { demand(m_driver.click(QStringLiteral("panorama")), "no panorama"); },
            [](QWidget *dialog, int) {
                if (auto *files = qobject_cast<QFileDialog *>(dialog))
                    static_cast<QDialog *>(files)->accept();
            });
        demand(WindowDriver::waitFor([this] { return !isBusy(); }), "the panorama is not made");
        shoot(QStringLiteral("panorama"));
    }

    bool isBusy() const
    {
        const QAbstractButton *align = m_driver.button(QStringLiteral("align"));
        return !align || !align->isEnabled();
    }

    void cannotRead(const QString &shooting)
    {
        const QString broken = m_temporary.path();
        QDirIterator files(shooting, QDir::Files);
        while (files.hasNext()) {
            files.next();
            QFile::copy(files.filePath(), broken + QLatin1Char('/') + files.fileName());
        }
        QFile(broken + QStringLiteral("/IMG_0007.jpg")).resize(4000);
        QFile(broken + QStringLiteral("/IMG_0011.jpg")).resize(0);
        demand(m_driver.click(QStringLiteral("Papywizard")), "Papywizard cannot be chosen");
        QSemaphore slow;
        m_host.beforeReading = [&slow](const QString &) { slow.acquire(); };
        demand(m_driver.drop({broken}), "a broken shooting is not taken");
        QTest::qWait(1500); // It takes a while before a pace can be told.
        slow.release(15);
        demand(WindowDriver::waitFor(
                   [this] { return m_driver.page()->property("imagesRead").toInt() >= 10; }),
            "reading does not begin");
        shoot(QStringLiteral("reading"));
        slow.release(10'000);
        demand(WindowDriver::waitFor([this] { return m_driver.button(QStringLiteral("retry")); }),
            "unreadable pictures are not named");
        m_host.beforeReading = nullptr;
        shoot(QStringLiteral("unreadable"));
        leave();
    }

    void leave()
    {
        WindowDriver::withDialogs(
            [this] { demand(m_driver.click(QStringLiteral("back")), "no way back"); },
            [](QWidget *dialog, int) {
                auto *box = qobject_cast<QMessageBox *>(dialog);
                demand(box, "a strange dialog");
                QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
            });
    }

    QDir m_folder;
    DrivenHost &m_host;
    QDir m_shootings;
    QTemporaryDir m_temporary;
    HeadModule m_module;
    MainWindow m_window;
    WindowDriver m_driver;
};

QPalette darkPalette()
{
    const QColor ground(0x2b, 0x2d, 0x31);
    QPalette palette(ground); // Edges too.
    const QColor field(0x1f, 0x20, 0x23);
    const QColor text(0xe6, 0xe6, 0xe6);
    for (const QPalette::ColorRole role :
        {QPalette::Window, QPalette::Button, QPalette::ToolTipBase, QPalette::AlternateBase})
        palette.setColor(role, ground);
    palette.setColor(QPalette::Base, field);
    for (const QPalette::ColorRole role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xc4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x7a, 0xb4, 0xf5));
    for (const QPalette::ColorRole role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    return palette;
}

} // namespace

int main(int argc, char **argv)
{
    const bool isDark = argc == 4 && qstrcmp(argv[3], "dark") == 0;
    if (argc < 3 || argc > 4 || (argc == 4 && !isDark)) {
        std::fprintf(stderr,
            "Usage: screenshots FOLDER SHOOTINGS [dark]\n"
            "Writes pictures of panohost's window into FOLDER. SHOOTINGS has folders papywizard, "
            "clauss,\n"
            "gigapan and vrdrive2 with a shooting each; a project is written there.\n");
        return 2;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QCoreApplication::setApplicationName(QStringLiteral("panohost"));
    // The pictures must not depend on what the user of this machine has set, nor change it.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    if (QLocale::system().language() == QLocale::C)
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

    DrivenHost host(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    if (isDark)
        QApplication::setPalette(darkPalette());
    const QString folder = QFile::decodeName(argv[1]);
    demand(QDir().mkpath(folder), "the folder cannot be made");
    Session(folder, QFile::decodeName(argv[2]), host).all();
    return 0;
}
