// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
//
// Stands in for the desktop portal's screenshot interface on a test's private session bus.
// Screenshot returns a Request object at once and sends its Response signal a moment
// later, as the portal does. The first argument says how it answers:
//   picture FILE   response 0, a copy of FILE at the returned file URI
//   broken         response 0, a file that is no picture at the returned URI
//   cancel         response 1
//   refuse         response 2
#include <QCoreApplication>
#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>
#include <QVariantMap>

#include <cstdio>

class ScreenshotAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Screenshot")

public:
    ScreenshotAdaptor(QObject* parent, QString mode, QString source)
        : QDBusAbstractAdaptor(parent), m_mode(std::move(mode)), m_source(std::move(source))
    {
    }

public slots:
    QDBusObjectPath Screenshot(const QString& parentWindow, const QVariantMap& options,
                               const QDBusMessage& message)
    {
        Q_UNUSED(parentWindow)
        QString sender = message.service().mid(1);
        sender.replace('.', '_');
        const QString token = options.value("handle_token").toString();
        const QString path =
            QString("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
        QTimer::singleShot(20, this, [this, path] { respond(path); });
        return QDBusObjectPath(path);
    }

private:
    void respond(const QString& path)
    {
        uint response = 0;
        QVariantMap results;
        const QString file = m_files.filePath(QString("shot-%1.png").arg(++m_count));
        if (m_mode == "picture") {
            QFile::copy(m_source, file);
            results.insert("uri", QUrl::fromLocalFile(file).toString());
        } else if (m_mode == "broken") {
            QFile out(file);
            out.open(QIODevice::WriteOnly);
            out.write("this is no picture");
            results.insert("uri", QUrl::fromLocalFile(file).toString());
        } else {
            response = m_mode == "cancel" ? 1 : 2;
        }
        QDBusMessage signal =
            QDBusMessage::createSignal(path, "org.freedesktop.portal.Request", "Response");
        signal << response << results;
        QDBusConnection::sessionBus().send(signal);
    }

    QString m_mode;
    QString m_source;
    QTemporaryDir m_files;
    int m_count = 0;
};

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: fake-screenshot-portal picture FILE|broken|cancel|refuse\n");
        return 2;
    }
    QObject root;
    new ScreenshotAdaptor(&root, args.at(1), args.value(2));
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject("/org/freedesktop/portal/desktop", &root) ||
        !bus.registerService("org.freedesktop.portal.Desktop")) {
        std::fprintf(stderr, "fake-screenshot-portal: %s\n", qPrintable(bus.lastError().message()));
        return 1;
    }
    return app.exec();
}

#include "fake-screenshot-portal.moc"
