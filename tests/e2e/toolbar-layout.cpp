// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/toolbar-layout.h"

#include "app/pallo-translator.h"
#include "common/style-sheet-loader.h"
#include "toolbar/ctrl-form.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <QToolButton>

#include <cstdio>
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

namespace {
const char* const kMeasureArgument = "--measure-toolbar";
} // namespace

ToolbarLayout measureToolbarLayoutIn(const QProcessEnvironment& env)
{
    QProcess measure;
    QProcessEnvironment measureEnv = env;
    measureEnv.insert("QT_QPA_PLATFORM", "xcb");
    measure.setProcessEnvironment(measureEnv);
    measure.start(QCoreApplication::applicationFilePath(), {QLatin1String(kMeasureArgument)});
    ToolbarLayout measured;
    if (!measure.waitForFinished(30000) || measure.exitCode() != 0)
        return measured;
    const QList<QByteArray> n = measure.readAllStandardOutput().trimmed().split(' ');
    if (n.size() != 12)
        return measured;
    measured.size = QSize(n[0].toInt(), n[1].toInt());
    measured.penCentre = QPoint(n[2].toInt(), n[3].toInt());
    measured.undoCentre = QPoint(n[4].toInt(), n[5].toInt());
    measured.chooseCentre = QPoint(n[6].toInt(), n[7].toInt());
    measured.textCentre = QPoint(n[8].toInt(), n[9].toInt());
    measured.closeCentre = QPoint(n[10].toInt(), n[11].toInt());
    return measured;
}

bool answerToolbarMeasure(int argc, char** argv, int* exitCode)
{
    if (argc < 2 || qstrcmp(argv[1], kMeasureArgument) != 0)
        return false;
    const ToolbarLayout m = measureToolbarLayout();
    std::printf("%d %d %d %d %d %d %d %d %d %d %d %d\n", m.size.width(), m.size.height(),
                m.penCentre.x(), m.penCentre.y(), m.undoCentre.x(), m.undoCentre.y(),
                m.chooseCentre.x(), m.chooseCentre.y(), m.textCentre.x(), m.textCentre.y(),
                m.closeCentre.x(), m.closeCentre.y());
    *exitCode = m.size.isEmpty() ? 1 : 0;
    return true;
}
