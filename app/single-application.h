// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

class SingleApplicationPrivate;

// A QApplication that knows whether it is the first (primary) instance of the
// application or a later (secondary) one, and lets a secondary instance pass a
// message to the primary.
class SingleApplication : public QApplication
{
    Q_OBJECT

public:
    enum Mode
    {
        User = 1 << 0,
        System = 1 << 1,
        SecondaryNotification = 1 << 2,
        ExcludeAppVersion = 1 << 3,
        ExcludeAppPath = 1 << 4,
    };
    Q_DECLARE_FLAGS(Options, Mode)

    SingleApplication(int& argc, char* argv[], bool allowSecondary = false,
                      Options options = Mode::User, int timeout = 1000);
    ~SingleApplication() override;

    bool isPrimary() const;
    bool isSecondary() const;

    // 0 for the primary; secondaries count up from 1.
    quint32 instanceId() const;

    bool sendMessage(const QByteArray& message, int timeout = 100);

signals:
    void instanceStarted();
    void receivedMessage(quint32 instanceId, QByteArray message);

private:
    SingleApplicationPrivate* d_ptr;
    Q_DECLARE_PRIVATE(SingleApplication)
};

Q_DECLARE_OPERATORS_FOR_FLAGS(SingleApplication::Options)
