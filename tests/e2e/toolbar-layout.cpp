// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/toolbar-layout.h"

#include "app/pallo-translator.h"
#include "app/style-sheet-loader.h"
#include "toolbar/ctrl-form.h"

#include <QCoreApplication>
#include <QTest>
#include <QToolButton>

#include <memory>

ToolbarLayout measureToolbarLayout()
{
    PalloTranslator translator(QStringLiteral("english"));
    QCoreApplication::installTranslator(&translator);

    // In the order the board starts its own.
    ToolbarLayout layout;
    std::unique_ptr<CtrlForm> form = std::make_unique<CtrlForm>();
    form->enterChooseState();
    loadApplicationStyleSheet();
    form->showCanvasFullScreen();
    // The toolbar takes its natural size on the event loop's turn after showing.
    if (QTest::qWaitForWindowExposed(form.get()) &&
        QTest::qWaitFor([&form] { return form->size() == form->sizeHint(); })) {
        auto* pen = form->findChild<QToolButton*>(QStringLiteral("toolButton_pen"));
        layout.size = form->size();
        if (pen != nullptr)
            layout.penCentre = pen->mapTo(form.get(), pen->rect().center());
        auto* undo = form->findChild<QToolButton*>(QStringLiteral("toolButton_undo"));
        if (undo != nullptr)
            layout.undoCentre = undo->mapTo(form.get(), undo->rect().center());
    }
    form.reset();
    QCoreApplication::removeTranslator(&translator);
    return layout;
}
