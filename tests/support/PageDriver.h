// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMessageBox>
#include <QTest>
#include <QUrl>
#include <QWizard>
#include <functional>
#include <memory>

/// What a test reads off a dialog that came up.
struct SeenDialog {
    QString title;
    // A file dialog's
    QString folder;
    QStringList filters;
    QString selectedFilter;
    bool severalFiles = false;
    // A message box's
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
};

/// Runs \a action and answers each modal dialog that comes up meanwhile: a file dialog with
/// \a files typed into it (empty: cancelled), a message box with its default button.
QVector<SeenDialog> answering(const std::function<void()> &action, const QStringList &files = {});

/// A page in a wizard's window behind a first page, driven as a user drives it.
class PageDriver {
public:
    /// Takes \a page over; it dies with the wizard.
    explicit PageDriver(QWizardPage *page);

    QWizardPage &page() const { return *m_page; }
    QWizard &wizard() const { return *m_wizard; }

    /// The page's widget of that name and class. Ends the test program when there is none.
    template <class Widget = QWidget> Widget *widget(const char *name) const
    {
        auto *found = m_page->findChild<Widget *>(QLatin1String(name));
        if (!found)
            qFatal("The page has no %s %s", Widget::staticMetaObject.className(), name);
        return found;
    }
    /// Text of the label or line edit of that name.
    QString text(const char *name) const;
    /// Brings the widget's tab to the front and clicks the widget.
    void click(const char *name, Qt::KeyboardModifiers keys = Qt::NoModifier) const;
    /// click(), with the file dialog answered.
    QVector<SeenDialog> choose(const char *button, const QStringList &files) const;
    /// Replaces a line edit's or spin box's text by typing.
    void type(const char *name, const QString &text) const;
    /// Drags \a files over the page and drops them there. Whether the page took them, and as what.
    Qt::DropAction drop(const QStringList &files) const;
    /// Calls a slot of the page as a host does, by name.
    bool call(const char *slot) const { return QMetaObject::invokeMethod(m_page, slot); }

    /// Whether the wizard lets the user go on.
    bool isComplete() const;
    void clickWizard(QWizard::WizardButton button) const;
    /// Waits until the page says that \a count pictures have been read.
    bool awaitRead(int count) const;
    /// The preview's drawing, and its size on the page.
    QPixmap preview() const;
    QSize previewSize() const;
    /// Types the beginning of a path into a line edit and takes what it proposes.
    void complete(const char *name, const QString &beginning) const;

private:
    std::unique_ptr<QWizard> m_wizard;
    QWizardPage *m_page;
};

/// Catches what would be opened in the desktop's file browser or web browser.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    UrlCatcher();
    ~UrlCatcher() override;
    QList<QUrl> urls;

public slots:
    void open(const QUrl &url) { urls.append(url); }
};

/// Paths "0.jpg", "1.jpg", ... in \a folder.
QStringList picturePaths(const QString &folder, int count);
/// The same, as files that exist.
QStringList makePictures(const QString &folder, int count);
