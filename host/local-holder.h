// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "host/named-pipe-callback.h"

#include <QObject>
#include <QString>

#include <memory>

class NamedPipeClient;

// Owns the host pipe, polls it every 10 ms on the GUI thread and turns each host
// message ({"type":"undo"}) into one of its signals.
class LocalHolder : public QObject, private NamedPipeCallback
{
    Q_OBJECT

public:
    explicit LocalHolder(QObject* parent = nullptr);
    ~LocalHolder() override;

    // Opens the host pipe, waiting up to 500 ms for it. False when a client already
    // exists (even one that failed to open) or when the pipe cannot be opened.
    bool Connect(const QString& name);

    // Decodes one message and emits its signal. Public so that a message can be handed
    // in without a pipe; the pipe client calls it through NamedPipeCallback.
    void OnPipeMessage(const char* data, std::int32_t length) override;

signals:
    void HolderDisconnected();
    void ShowOrHideBoard();
    void BoardUndo();
    void BoardRedo();
    void OpenOrCloseZoom();
    void OpenOrCloseShut();
    void OpenOrCloseTimer();
    void BoardTrashCan();
    void HideBoard();
    void CircleEditMode();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    std::unique_ptr<NamedPipeClient> client_;
    int pollTimer_ = 0;
};
