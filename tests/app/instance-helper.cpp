// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
//
// Plays a board for the single-instance tests. It prints its role as
// "primary 0" or "secondary N". A secondary sends its message ("show" unless
// --message says otherwise) and ends; a primary prints "instance-started" and
// "message ID TEXT" lines as they come, and ends when its standard input closes.
//
// Options: --app NAME (application name, so that tests do not meet each other),
//          --mode BITS and --exclusive (use SingleApplication directly instead of
//          the board's wrapper), --message TEXT.
#include "app/single-application-wrapper.h"

#include <QSocketNotifier>

#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <unistd.h>

int main(int argc, char* argv[])
{
    QString appName = QStringLiteral("pallo-instance-helper");
    QByteArray message = "show";
    bool custom = false;
    bool allowSecondary = true;
    int mode = SingleApplication::User | SingleApplication::System |
               SingleApplication::SecondaryNotification;
    for (int i = 1; i < argc; ++i) {
        const bool hasValue = i + 1 < argc;
        if (!std::strcmp(argv[i], "--app") && hasValue) {
            appName = QString::fromLocal8Bit(argv[++i]);
        } else if (!std::strcmp(argv[i], "--message") && hasValue) {
            message = argv[++i];
        } else if (!std::strcmp(argv[i], "--mode") && hasValue) {
            mode = std::stoi(argv[++i]);
            custom = true;
        } else if (!std::strcmp(argv[i], "--exclusive")) {
            allowSecondary = false;
            custom = true;
        }
    }
    QCoreApplication::setApplicationName(appName);

    std::unique_ptr<SingleApplication> app;
    if (custom) {
        app = std::make_unique<SingleApplication>(argc, argv, allowSecondary,
                                                  SingleApplication::Options(mode), 1000);
    } else {
        app = std::make_unique<SingleApplicationWrapper>(argc, argv);
    }

    if (app->isSecondary()) {
        std::cout << "secondary " << app->instanceId() << std::endl;
        const bool sent = app->sendMessage(message, 100);
        std::cout << (sent ? "sent" : "not sent") << std::endl;
        return 0;
    }

    std::cout << "primary " << app->instanceId() << std::endl;
    QObject::connect(app.get(), &SingleApplication::instanceStarted,
                     []() { std::cout << "instance-started" << std::endl; });
    QObject::connect(app.get(), &SingleApplication::receivedMessage,
                     [](quint32 instanceId, const QByteArray& text) {
                         std::cout << "message " << instanceId << ' ' << text.toStdString()
                                   << std::endl;
                     });
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&input]() {
        char buffer[256];
        if (::read(STDIN_FILENO, buffer, sizeof buffer) <= 0) {
            input.setEnabled(false);
            QCoreApplication::quit();
        }
    });
    return app->exec();
}
