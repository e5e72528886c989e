// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>
#include <QVector>
#include <QWidget>

class QAbstractButton;
class QFrame;
class QLabel;
class QVBoxLayout;

/// Where an import begins: a head is chosen by picture and sentence.
class StartPage final : public QWidget {
    Q_OBJECT
public:
    explicit StartPage(QWidget *parent = nullptr);

    void addHead(const QIcon &icon, const QString &name, const QString &description);
    /// Says why there is nothing to choose.
    void showProblem(const QString &problem);

    /// Says what is known of dropped files and leaves the heads of \a suitable to choose from.
    void narrow(const QString &sentence, const QVector<int> &suitable);
    /// All heads are to choose from again.
    void widen();
    /// The head that Enter takes.
    void prefer(int head);

signals:
    void chosen(int head);
    /// The dropped files are not wanted after all.
    void filesForgotten();

private:
    QVBoxLayout *m_heads;
    QVector<QAbstractButton *> m_buttons;
    QFrame *m_notice;
    QLabel *m_noticeText;
    QLabel *m_hint;
};
