// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QString>

// What a key press in a hotkey editor leads to.
struct KeyCapture
{
    enum Action
    {
        Ignore, // nothing happens
        Refuse, // error is reported, editor unchanged
        Forget, // error is reported, the recorded key is dropped, the text stays
        Erase,  // error is reported, the recorded key is dropped and the text emptied
        Accept  // text is shown and the key recorded
    };

    Action action = Ignore;
    // Translation key of the message for Refuse, Forget and Erase.
    const char* error = nullptr;
    // The combination in QKeySequence's portable format, for Accept.
    QString text;
};

// Decides what pressing key with modifiers does in a hotkey editor. The Meta key is
// never part of a combination: held, it is left out; pressed alone, it is ignored.
KeyCapture captureKey(int key, Qt::KeyboardModifiers modifiers);

// Read-only line edit that records one key combination from the keyboard and shows it
// as text. Unsuitable combinations are refused with a message through sg_error.
class KeyLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit KeyLineEdit(QWidget* parent = nullptr);

    // The recorded key without modifiers, Qt::Key_unknown when none is recorded.
    int key() const { return m_key; }

    // Records key and shows its text; Qt::Key_unknown is refused with a message.
    void setKey(int key);
    // Shows a combination given as portable text, as read from the settings.
    void setKeyText(const QString& text);

signals:
    void sg_error(QString errorstring);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void report(const char* key);

    int m_key;
};
