// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/Table.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <functional>

/// How a program ended, and what it said.
struct Run {
    /// Its exit code; -1 when it did not start, was ended by a signal or did not end in time. Then
    /// the last line of err tells which.
    int code = -1;
    QByteArray out;
    QByteArray err;

    /// Empty after exit code 0, else the code and all that was said.
    QByteArray failure() const;
};

/// What a program is given beside its arguments.
struct Surroundings {
    /// Where it runs; empty: where the test does.
    QString folder = {};
    QByteArray input = {};
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

/// The test's own environment without display and language.
QProcessEnvironment bareEnvironment();

/// A program that a test has something to do with before it ends. It does not outlive this object.
class RunningProgram {
public:
    RunningProgram(
        const Text &program, const Texts &arguments, const Surroundings &surroundings = {});

    /// What it has said on its standard error so far.
    const QByteArray &complaints();
    /// Waits until \a isReached; false when the program ends before.
    bool await(const std::function<bool()> &isReached);
    /// Sends it the signal of that number, if it has not ended.
    void signal(int number) const;
    /// Waits until it ends, and ends it when that takes too long.
    Run wait();

private:
    QProcess m_process;
    QByteArray m_complaints;
};

/// Runs \a program, by its path or as PATH finds it, to its end.
Run run(const Text &program, const Texts &arguments, const Surroundings &surroundings = {});

/// Whether there is a process of that number, and it is not just waiting for its parent to notice
/// its end.
bool isAlive(int process);

/// The words of a command line, blanks between them.
QStringList words(const Text &text);
