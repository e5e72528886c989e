// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTest>
#include <initializer_list>

/// A text that may be written as a plain literal in UTF-8.
struct Text : QString {
    Text(const QString &text)
        : QString(text)
    {
    }
    Text(const char *utf8)
        : QString(QString::fromUtf8(utf8))
    {
    }
};

/// Texts that may be written as plain literals.
struct Texts : QStringList {
    Texts(const QStringList &texts)
        : QStringList(texts)
    {
    }
    Texts(std::initializer_list<Text> texts)
    {
        for (const Text &text : texts)
            append(text);
    }
};

/// What a cell of a data row is given as.
template <typename Value> struct CellOf {
    using Type = Value;
};
template <> struct CellOf<QString> {
    using Type = Text;
};
template <> struct CellOf<QStringList> {
    using Type = Texts;
};
template <typename Value> using Cell = typename CellOf<Value>::Type;

/// The columns of a test's data; called, it adds a row.
template <typename First, typename... Rest> class Table {
public:
    template <typename... Names> explicit Table(const char *first, Names... rest)
    {
        QTest::addColumn<First>(first);
        (QTest::addColumn<Rest>(rest), ...);
    }
    void operator()(
        const QByteArray &name, const Cell<First> &first, const Cell<Rest> &...rest) const
    {
        QTestData &row = QTest::newRow(name.constData()) << static_cast<const First &>(first);
        static_cast<void>((row << ... << static_cast<const Rest &>(rest)));
    }
    /// A row that its first cell names.
    void operator()(const char *first, const Cell<Rest> &...rest) const
    {
        (*this)(*first ? first : "nothing", first, rest...);
    }
};
