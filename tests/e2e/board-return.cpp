// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/board-return.h"

#include "tests/e2e/e2e-board.h"
#include "tests/e2e/x11-probe.h"

#include <QDebug>
#include <QTest>

bool revealDockedToolbar(const std::function<QRect()>& toolbarRect, const QSize& full,
                         const std::function<bool(const QPoint&)>& moveTo)
{
    const QRect strip = toolbarRect();
    if (strip.size() == full)
        return true;
    if (strip.isEmpty() || !moveTo(strip.center()))
        return false;
    if (QTest::qWaitFor([&] { return toolbarRect().size() == full; }, 5000))
        return true;
    qWarning() << "the toolbar stays at" << toolbarRect() << "measured" << full;
    return false;
}

QString showOrHideBringsWindowsBack(E2eBoard& board, const X11Probe& probe)
{
    if (!board.send(R"({"type":"show_or_hide"})"))
        return "show_or_hide not sent";
    const bool back = QTest::qWaitFor(
        [&] { return probe.canvasOf(board.pid()).id != 0 && probe.toolbarOf(board.pid()).id != 0; },
        5000);
    return back ? QString() : QString("canvas or toolbar not back");
}
