// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/board-app.h"

#include "bridge/bridge.h"
#include "common/scale-factor.h"
#include "common/style-sheet-loader.h"
#include "host/local-holder.h"
#include "logging/startup-steps.h"
#include "toolbar/ctrl-form.h"

#include <QMetaObject>

#include <string>

namespace {

// The process's own command line. On X11, Qt takes "--name VALUE" out of
// QCoreApplication::arguments() for itself (it names the X resources), so that list
// would make a board started with its pipe name alone look started without arguments.
int argumentCount()
{
    bg::BridgeInterface* bridge = bg::GetBridge();
    if (bridge == nullptr)
        return QCoreApplication::arguments().size();
    return static_cast<int>(bridge->arguments().size());
}

QString pipeNameOption()
{
    bg::BridgeInterface* bridge = bg::GetBridge();
    if (bridge == nullptr)
        return QString();
    return QString::fromStdString(bridge->options().value("name", bg::Value("")).toStdString());
}

} // namespace

BoardApp::BoardApp(int& argc, char* argv[]) : SingleApplicationWrapper(argc, argv)
{
    // Queued so that a secondary instance, which never runs the event loop, never
    // touches the pipe or opens a window.
    QMetaObject::invokeMethod(this, "Initialize", Qt::QueuedConnection);
    connect(this, &SingleApplication::receivedMessage, this, &BoardApp::showToolbar);
}

BoardApp::~BoardApp()
{
    delete ctrlForm;
    ctrlForm = nullptr;
}

double BoardApp::ScaleFactor()
{
    return screenScaleFactor();
}

void BoardApp::Initialize()
{
    if (argumentCount() < 2) {
        QCoreApplication::exit(-1);
        return;
    }
    markStartupStep("initialize");
    const QString pipeName = pipeNameOption();
    holder = new LocalHolder(this);
    // A failed Connect leaves a broken client behind that reports a disconnection on
    // the next poll; the disconnection is wired only after a successful Connect, so
    // that report cannot turn this -1 into a clean exit.
    if (!holder->Connect(pipeName)) {
        QCoreApplication::exit(-1);
        return;
    }
    connect(holder, &LocalHolder::HolderDisconnected, this, &BoardApp::OnHolderDisconnected);
    connect(holder, &LocalHolder::ShowOrHideBoard, this, &BoardApp::ShowOrHideBoard);
    connect(holder, &LocalHolder::OpenOrCloseZoom, this, &BoardApp::OpenOrCloseZoom);
    connect(holder, &LocalHolder::OpenOrCloseShut, this, &BoardApp::OpenOrCloseShut);
    connect(holder, &LocalHolder::OpenOrCloseTimer, this, &BoardApp::OpenOrCloseTimer);
    connect(holder, &LocalHolder::BoardTrashCan, this, &BoardApp::BoardTrashCan);
    connect(holder, &LocalHolder::HideBoard, this, &BoardApp::HideBoard);
    connect(holder, &LocalHolder::CircleEditMode, this, &BoardApp::CircleEditMode);

    markStartupStep("pipe connected");
    // Styled before any widget exists, so that each is polished once, with its final style.
    loadApplicationStyleSheet();
    markStartupStep("stylesheet");
    // The canvas is mapped first, the toolbar after it and so above it; both in this one
    // turn of the event loop, so that no host command finds the board half built.
    ctrlForm = new CtrlForm(nullptr, CtrlForm::CanvasShown::AtOnce);
    markStartupStep("toolbar made");
    ctrlForm->enterChooseState();
    markStartupStep("choose state");
    ctrlForm->showCanvasFullScreen();
    markStartupStep("toolbar over the canvas");

    // Host undo and redo travel the same road as the toolbar's own buttons.
    connect(holder, &LocalHolder::BoardUndo, ctrlForm, &CtrlForm::sg_undo);
    connect(holder, &LocalHolder::BoardRedo, ctrlForm, &CtrlForm::sg_redo);
}

void BoardApp::OnHolderDisconnected()
{
    QCoreApplication::exit(0);
}

void BoardApp::ShowOrHideBoard()
{
    if (ctrlForm)
        ctrlForm->ShowOrHide();
}

void BoardApp::OpenOrCloseZoom()
{
    if (ctrlForm)
        ctrlForm->slot_zoom();
}

void BoardApp::OpenOrCloseShut()
{
    if (ctrlForm)
        ctrlForm->slot_screen();
}

void BoardApp::OpenOrCloseTimer()
{
    if (ctrlForm)
        emit ctrlForm->sg_timer();
}

void BoardApp::BoardTrashCan()
{
    if (ctrlForm)
        emit ctrlForm->sg_clear();
}

void BoardApp::HideBoard()
{
    if (ctrlForm && ctrlForm->isBoardShown())
        ctrlForm->hideBoard();
}

void BoardApp::CircleEditMode()
{
    if (ctrlForm)
        ctrlForm->CircleEditMode();
}

void BoardApp::showToolbar()
{
    if (!ctrlForm)
        return;
    if (ctrlForm->isMinimized())
        ctrlForm->showNormal();
    ctrlForm->show();
    ctrlForm->activateWindow();
}
