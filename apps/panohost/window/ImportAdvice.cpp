// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/ImportAdvice.h"

#include <QCoreApplication>
#include <QLocale>
#include <QVector>
#include <algorithm>

namespace {

struct AdviceTexts {
    Q_DECLARE_TR_FUNCTIONS(ImportAdvice)
};

/// Before this a pace is mostly chance.
constexpr int kFewestPictures = 3;
constexpr qint64 kShortestTime = 500;

QString number(int value)
{
    return QLocale().toString(value);
}

QString countProblem(const ImportState &state)
{
    const int shots = state.file.shots;
    const int pictures = state.pictures;
    // Of the two numbers only the smaller may be one.
    if (pictures > shots)
        return AdviceTexts::tr(
            "The head took %Ln pictures, but %1 are chosen. Too many: %2.", nullptr, shots)
            .arg(number(pictures), number(pictures - shots));
    const QString problem = AdviceTexts::tr(
        "The head took %1 pictures, but %Ln are chosen. Missing: %2.", nullptr, pictures)
                                .arg(number(shots), number(shots - pictures));
    return state.skipped.isEmpty() ? problem
                                   : problem + QLatin1Char(' ')
            + AdviceTexts::tr("The numbers skip %1.").arg(state.skipped.join(QStringLiteral(", ")));
}

/// A name around its last number.
struct NumberedName {
    explicit NumberedName(const QString &path)
        : name(path.mid(path.lastIndexOf(QLatin1Char('/')) + 1))
    {
        // The digits of a suffix, as in .CR2, count nothing.
        const int dot = static_cast<int>(name.lastIndexOf(QLatin1Char('.')));
        end = dot > 0 ? dot : static_cast<int>(name.size());
        while (end > 0 && !isDigit(end - 1))
            --end;
        begin = end;
        while (begin > 0 && isDigit(begin - 1))
            --begin;
        number = name.mid(begin, end - begin).toInt();
    }
    bool isDigit(int at) const
    {
        return name[at] >= QLatin1Char('0') && name[at] <= QLatin1Char('9');
    }
    QString with(int other) const
    {
        return name.left(begin)
            + QString::number(other).rightJustified(end - begin, QLatin1Char('0')) + name.mid(end);
    }

    QString name;
    int begin = 0;
    int end = 0;
    int number = 0;
};

} // namespace

ImportAdvice adviceFor(const ImportState &state)
{
    using Kind = ImportAdvice::Kind;
    const HeadFile &file = state.file;
    if (!state.refusal.isEmpty())
        return {Kind::Problem, state.refusal};
    if (state.wantsFile && !file.path.isEmpty() && !file.problem.isEmpty())
        return {Kind::Problem, file.problem};
    if (state.wantsFile && file.path.isEmpty() && state.pictures == 0)
        return {Kind::NextStep,
            AdviceTexts::tr("Drop the head's file and the pictures here, or choose them below.")};
    if (state.pictures == 0)
        return {Kind::NextStep,
            state.wantsFile ? AdviceTexts::tr(
                "The head took %Ln pictures. Drop them here, or choose them below.", nullptr,
                file.shots)
                            : AdviceTexts::tr("Drop the pictures here, or choose them below.")};
    if (state.isWholeWithoutUnreadable())
        return {Kind::Problem,
            AdviceTexts::tr("Pictures that cannot be read: %1. Leave them out, or put them right "
                            "and try again.")
                .arg(number(state.unreadable))};
    if (state.wantsFile && !file.path.isEmpty() && file.shots != state.pictures)
        return {Kind::Problem, countProblem(state)};
    if (state.isReading())
        return {Kind::Busy, AdviceTexts::tr("The pictures are being read.")};
    if (state.unreadable > 0)
        return {Kind::Problem,
            AdviceTexts::tr("Pictures that cannot be read: %1. Put them right and try again, or "
                            "choose others.")
                .arg(number(state.unreadable))};
    if (state.wantsFile && file.path.isEmpty())
        return {
            Kind::NextStep, AdviceTexts::tr("Now drop the head's file here, or choose it below.")};
    if (!state.isComplete)
        return {Kind::NextStep, AdviceTexts::tr("Check the settings below.")};
    return {Kind::Ready,
        AdviceTexts::tr("All %Ln pictures are read. Check the settings below, then import.",
            nullptr, state.pictures)};
}

QStringList skippedNames(const QStringList &pictures, int most)
{
    if (pictures.isEmpty())
        return {};
    const NumberedName first(pictures.first());
    QVector<int> numbers;
    numbers.reserve(pictures.size());
    for (const QString &picture : pictures) {
        const NumberedName name(picture);
        if (name.with(name.number) != first.with(name.number))
            return {};
        numbers.append(name.number);
    }
    std::sort(numbers.begin(), numbers.end());
    QStringList names;
    for (int i = 1; i < numbers.size(); ++i) {
        for (int number = numbers[i - 1] + 1; number < numbers[i]; ++number) {
            if (names.size() == most)
                return {};
            names.append(first.with(number));
        }
    }
    return names;
}

void ReadingPace::start(qint64 time)
{
    m_start = time;
    m_elapsed = 0;
    m_done = 0;
}

void ReadingPace::update(qint64 time, int done)
{
    if (done <= m_done)
        return;
    m_elapsed = time - m_start;
    m_done = done;
}

qint64 ReadingPace::timeFor(int left) const
{
    if (m_done < kFewestPictures || m_elapsed < kShortestTime)
        return -1;
    return m_elapsed * left / m_done;
}

QString timeLeftText(qint64 milliseconds)
{
    if (milliseconds < 0)
        return {};
    const qint64 seconds = milliseconds / 1000;
    if (seconds < 5)
        return AdviceTexts::tr("a few seconds left");
    if (seconds < 55)
        return AdviceTexts::tr("about %n seconds left", nullptr, int((seconds + 2) / 5 * 5));
    const int minutes = int((seconds + 30) / 60);
    if (minutes <= 1)
        return AdviceTexts::tr("about a minute left");
    if (minutes < 60)
        return AdviceTexts::tr("about %n minutes left", nullptr, minutes);
    return AdviceTexts::tr("about %1 hours left").arg(QLocale().toString(minutes / 60.0, 'f', 1));
}
