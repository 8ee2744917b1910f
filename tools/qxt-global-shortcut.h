// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QObject>

#include <memory>

class GlobalKeyGrab;

// A key combination registered with the system: activated() fires when it is pressed,
// whichever program has the keyboard.
class QxtGlobalShortcut : public QObject
{
    Q_OBJECT

public:
    explicit QxtGlobalShortcut(QObject* parent = nullptr);
    ~QxtGlobalShortcut() override;

    // Registers the first combination of the sequence in place of the one held before.
    // False when the system refuses it, for instance because another program holds it.
    bool setShortcut(const QKeySequence& shortcut);
    QKeySequence shortcut() const { return m_shortcut; }

signals:
    void activated();

private:
    std::unique_ptr<GlobalKeyGrab> m_grab;
    QKeySequence m_shortcut;
};
