// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>
#include <vector>

// The figures of a run, printed as one table at the end.
class ResultsTable
{
public:
    // Times of single steps in nanoseconds; a later row with the same labels replaces an
    // earlier one (Google Benchmark may run a case more than once).
    void add(const QString& what, const QString& length, const QString& items,
             std::vector<double> timesNs);
    QString format() const;

private:
    struct Row
    {
        QString what;
        QString length;
        QString items;
        double meanNs;
        double medianNs;
        int steps;
    };
    QVector<Row> m_rows;
};

// Mean and median of times, in nanoseconds.
double meanOf(const std::vector<double>& times);
double medianOf(std::vector<double> times);
