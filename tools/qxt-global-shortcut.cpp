// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/qxt-global-shortcut.h"

#include "tools/global-key-grab.h"
#include "tools/key-combination.h"

#include <QDebug>

QxtGlobalShortcut::QxtGlobalShortcut(QObject* parent)
    : QObject(parent), m_grab(std::make_unique<GlobalKeyGrab>([this] { emit activated(); }))
{
}

QxtGlobalShortcut::~QxtGlobalShortcut() = default;

bool QxtGlobalShortcut::setShortcut(const QKeySequence& shortcut)
{
    if (m_grab->isHeld() && !m_grab->release()) {
        qWarning() << "QxtGlobalShortcut failed to unregister:" << m_shortcut;
        return false;
    }
    m_shortcut = QKeySequence();
    const int combination = shortcut.isEmpty() ? 0 : combinedKey(shortcut, 0);
    const auto key = static_cast<Qt::Key>(combination & ~Qt::KeyboardModifierMask);
    const auto modifiers = Qt::KeyboardModifiers(combination & Qt::KeyboardModifierMask);
    if (combination == 0 || !m_grab->grab(key, modifiers)) {
        qWarning() << "QxtGlobalShortcut failed to register:" << shortcut;
        return false;
    }
    m_shortcut = shortcut;
    return true;
}
