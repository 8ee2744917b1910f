// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

// A popup menu runs an event loop of its own while it is open, so a test cannot click one
// of its entries after the call that opened it returns. This watches from inside that loop
// for the entry to show on screen and clicks it with the real pointer, once.
class PopupClicker : public QObject
{
public:
    explicit PopupClicker(const QString& entryName);

    bool clicked() const { return m_clicked; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    QString m_entryName;
    int m_timerId = 0;
    bool m_clicked = false;
};
