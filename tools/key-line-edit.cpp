// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/key-line-edit.h"

#include "tools/key-combination.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>

namespace {

bool isSpecialKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
    case Qt::Key_Tab:
    // Tab pressed with Shift arrives under this name.
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_CapsLock:
        return true;
    default:
        return key >= Qt::Key_F1 && key <= Qt::Key_F12;
    }
}

bool isDigitOrLetter(int key)
{
    return (key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z);
}

// Clipboard, selection, saving and undo keys every program uses.
bool isCommonShortcut(const QString& text)
{
    static const char* const common[] = {"CTRL+S", "CTRL+C", "CTRL+V", "CTRL+A",
                                         "CTRL+D", "CTRL+Z", "CTRL+X"};
    for (const char* shortcut : common) {
        if (text.compare(QLatin1String(shortcut), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

} // namespace

KeyCapture captureKey(int key, Qt::KeyboardModifiers modifiers)
{
    KeyCapture capture;
    // Meta never takes part in a combination, so pressing it alone records nothing.
    if (key == Qt::Key_unknown || key == Qt::Key_Meta || key == Qt::Key_Super_L ||
        key == Qt::Key_Super_R)
        return capture;
    if (isSpecialKey(key)) {
        capture.action = KeyCapture::Refuse;
        capture.error = "KeyLineEdit.Error.SpecialKey";
        return capture;
    }
    if (key == Qt::Key_Space || key == Qt::Key_Backspace) {
        capture.action = KeyCapture::Erase;
        capture.error = "KeyLineEdit.Error.HotKeyErased";
        return capture;
    }

    int combination = key;
    if (modifiers & Qt::ShiftModifier)
        combination += Qt::SHIFT;
    if (modifiers & Qt::ControlModifier)
        combination += Qt::CTRL;
    if (modifiers & Qt::AltModifier)
        combination += Qt::ALT;

    if (isDigitOrLetter(key) &&
        !(modifiers & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier))) {
        capture.action = KeyCapture::Forget;
        capture.error = "KeyLineEdit.Error.NotSupportSingleNumOrWord";
        return capture;
    }

    const QString text = QKeySequence(combination).toString(QKeySequence::PortableText);
    if (isCommonShortcut(text)) {
        capture.action = KeyCapture::Refuse;
        capture.error = "KeyLineEdit.Error.HotkeyForbid";
        return capture;
    }
    capture.action = KeyCapture::Accept;
    capture.text = text;
    return capture;
}

KeyLineEdit::KeyLineEdit(QWidget* parent) : QLineEdit(parent), m_key(Qt::Key_unknown)
{
    setReadOnly(true);
    setText(QCoreApplication::translate("KeyLineEdit", "KeyLineEdit.Tips.ClickKeyboardToSet"));
}

void KeyLineEdit::setKey(int key)
{
    if (key == Qt::Key_unknown) {
        report("KeyLineEdit.Error.UnknownKey");
        return;
    }
    m_key = key;
    setText(QKeySequence(key).toString(QKeySequence::PortableText));
}

void KeyLineEdit::setKeyText(const QString& text)
{
    const QKeySequence sequence = QKeySequence::fromString(text, QKeySequence::PortableText);
    m_key = sequence.isEmpty() ? int(Qt::Key_unknown)
                               : combinedKey(sequence, 0) & ~Qt::KeyboardModifierMask;
    setText(text);
}

bool KeyLineEdit::event(QEvent* event)
{
    // Every combination is the editor's to record, even one the program uses as a
    // shortcut elsewhere.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    // Tab would move the focus on before the key handler sees it.
    if (event->type() == QEvent::KeyPress) {
        auto* keyEvent = static_cast<QKeyEvent*>(event);
        if (keyEvent->key() == Qt::Key_Tab || keyEvent->key() == Qt::Key_Backtab) {
            keyPressEvent(keyEvent);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void KeyLineEdit::keyPressEvent(QKeyEvent* event)
{
    const KeyCapture capture = captureKey(event->key(), event->modifiers());
    switch (capture.action) {
    case KeyCapture::Ignore:
        event->ignore();
        return;
    case KeyCapture::Refuse:
        break;
    case KeyCapture::Forget:
        m_key = Qt::Key_unknown;
        break;
    case KeyCapture::Erase:
        m_key = Qt::Key_unknown;
        clear();
        break;
    case KeyCapture::Accept:
        setText(capture.text);
        m_key = event->key();
        // Leaving the editor ends the edit, which hands the text on.
        clearFocus();
        return;
    }
    report(capture.error);
}

void KeyLineEdit::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        selectAll();
}

void KeyLineEdit::report(const char* key)
{
    emit sg_error(QCoreApplication::translate("KeyLineEdit", key));
}
