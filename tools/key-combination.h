// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QtGlobal>

// The key and modifiers of a sequence's entry as one int; Qt 6 hands the entry out as a
// QKeyCombination.
inline int combinedKey(const QKeySequence& sequence, int index)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return sequence[index].toCombined();
#else
    return sequence[index];
#endif
}
