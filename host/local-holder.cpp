// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/local-holder.h"

#include "bridge/bridge.h"
#include "bridge/control-escape.h"
#include "host/named-pipe-client.h"

#include <QTimerEvent>

#include <json/json.h>

#include <exception>
#include <string>

namespace {

constexpr int kPollIntervalMs = 10;
constexpr int kOpenWaitMs = 500;
// Tools on the host side match the unsupported-message line by this source position,
// so it stays the same whatever happens to this file.
constexpr int kUnsupportedMessageLine = 89;

} // namespace

LocalHolder::LocalHolder(QObject* parent) : QObject(parent)
{
    pollTimer_ = startTimer(kPollIntervalMs, Qt::CoarseTimer);
}

LocalHolder::~LocalHolder()
{
    if (pollTimer_ != 0)
        killTimer(pollTimer_);
}

bool LocalHolder::Connect(const QString& name)
{
    if (client_)
        return false;
    client_ = std::make_unique<NamedPipeClient>(static_cast<NamedPipeCallback*>(this));
    return client_->Open(name.toUtf8().toStdString(), kOpenWaitMs) != 0;
}

void LocalHolder::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != pollTimer_) {
        QObject::timerEvent(event);
        return;
    }
    if (client_ && client_->Poll(0) != 0) {
        client_.reset();
        emit HolderDisconnected();
    }
}

void LocalHolder::OnPipeMessage(const char* data, std::int32_t length)
{
    const std::string text(data, length > 0 ? static_cast<std::size_t>(length) : 0);
    try {
        Json::Reader reader;
        Json::Value root;
        if (!reader.parse(text, root, true))
            return;
        const std::string type = root["type"].asString();
        if (type == "show_or_hide")
            emit ShowOrHideBoard();
        else if (type == "undo")
            emit BoardUndo();
        else if (type == "redo")
            emit BoardRedo();
        else if (type == "zoom")
            emit OpenOrCloseZoom();
        else if (type == "shut")
            emit OpenOrCloseShut();
        else if (type == "timer")
            emit OpenOrCloseTimer();
        else if (type == "trash_can")
            emit BoardTrashCan();
        else if (type == "hide")
            emit HideBoard();
        else if (type == "circle_mode")
            emit CircleEditMode();
    } catch (const std::exception& e) {
        bg::BridgeInterface* bridge = bg::GetBridge();
        if (bridge == nullptr)
            return;
        bridge->logger().log(bg::Logger::kError, "bg",
                             "%s[E][bg] %s %-4d: \"receive unsupported message: %s, error: %s\"\n",
                             bridge->clock().format("%m%d-%H:%M:%S").c_str(),
                             bg::base_name(__FILE__), kUnsupportedMessageLine,
                             bg::escape_control(text).c_str(), e.what());
    }
}
