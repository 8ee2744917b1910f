// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bench/results-table.h"

#include <QStringList>

#include <algorithm>
#include <numeric>

namespace {

QString microseconds(double ns)
{
    return QString::number(ns / 1000.0, 'f', ns < 100000 ? 1 : 0);
}

} // namespace

double meanOf(const std::vector<double>& times)
{
    if (times.empty())
        return 0;
    return std::accumulate(times.begin(), times.end(), 0.0) / times.size();
}

double medianOf(std::vector<double> times)
{
    if (times.empty())
        return 0;
    const auto middle = times.begin() + times.size() / 2;
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

void ResultsTable::add(const QString& what, const QString& length, const QString& items,
                       std::vector<double> timesNs)
{
    const Row row{what, length, items, meanOf(timesNs), medianOf(timesNs), int(timesNs.size())};
    for (Row& existing : m_rows) {
        if (existing.what == what && existing.length == length && existing.items == items) {
            existing = row;
            return;
        }
    }
    m_rows.append(row);
}

QString ResultsTable::format() const
{
    const QStringList header = {"tool / step", "stroke length", "items",
                                "mean µs",     "median µs",     "steps"};
    QVector<QStringList> lines;
    for (const Row& row : m_rows) {
        lines.append({row.what, row.length, row.items, microseconds(row.meanNs),
                      microseconds(row.medianNs), QString::number(row.steps)});
    }
    QString out = "| " + header.join(" | ") + " |\n|";
    for (int i = 0; i < header.size(); ++i)
        out += i == 0 ? "---|" : "---:|";
    out += "\n";
    for (const QStringList& line : lines)
        out += "| " + line.join(" | ") + " |\n";
    return out;
}
