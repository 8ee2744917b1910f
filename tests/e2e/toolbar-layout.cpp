// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/toolbar-layout.h"

#include "app/pallo-translator.h"
#include "common/style-sheet-loader.h"
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
    loadApplicationStyleSheet();
    std::unique_ptr<CtrlForm> form =
        std::make_unique<CtrlForm>(nullptr, CtrlForm::CanvasShown::AtOnce);
    form->enterChooseState();
    form->showCanvasFullScreen();
    // The toolbar takes its natural size on the event loop's turn after showing.
    if (QTest::qWaitForWindowExposed(form.get()) &&
        QTest::qWaitFor([&form] { return form->size() == form->sizeHint(); })) {
        layout.size = form->size();
        const auto centreOf = [&form](const char* name) {
            auto* button = form->findChild<QToolButton*>(QLatin1String(name));
            return button ? button->mapTo(form.get(), button->rect().center()) : QPoint();
        };
        layout.penCentre = centreOf("toolButton_pen");
        layout.undoCentre = centreOf("toolButton_undo");
        layout.chooseCentre = centreOf("toolButton_choose");
        layout.textCentre = centreOf("toolButton_text");
        layout.closeCentre = centreOf("toolButton_close");
    }
    form.reset();
    QCoreApplication::removeTranslator(&translator);
    return layout;
}
