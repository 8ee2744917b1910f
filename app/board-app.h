// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/single-application-wrapper.h"

class CtrlForm;
class LocalHolder;

// The board's application object: links to the host over its pipe, creates the
// toolbar (which creates the canvas) and routes the host's commands to them.
class BoardApp : public SingleApplicationWrapper
{
    Q_OBJECT

public:
    BoardApp(int& argc, char* argv[]);
    ~BoardApp() override;

    // Logical DPI of the primary screen over 96.
    static double ScaleFactor();

    LocalHolder* localHolder() const { return holder; }
    CtrlForm* toolbar() const { return ctrlForm; }

public slots:
    void Initialize();
    void OnHolderDisconnected();
    void ShowOrHideBoard();
    void OpenOrCloseZoom();
    void OpenOrCloseShut();
    void OpenOrCloseTimer();
    void BoardTrashCan();
    void HideBoard();
    void CircleEditMode();

private:
    void showToolbar();

    LocalHolder* holder = nullptr;
    CtrlForm* ctrlForm = nullptr;
};
