// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/config-path.h"

#include <QMap>
#include <QtTest>

class TestConfigPath : public QObject
{
    Q_OBJECT

private slots:
    void pathFromEnvironment_data();
    void pathFromEnvironment();
};

void TestConfigPath::pathFromEnvironment_data()
{
    QTest::addColumn<QString>("explicitPath");
    QTest::addColumn<QString>("configHome");
    QTest::addColumn<QString>("home");
    QTest::addColumn<QString>("expected");

    QTest::newRow("explicit file wins") << "/x/b.json"
                                        << "/cfg"
                                        << "/home/u"
                                        << "/x/b.json";
    QTest::newRow("xdg config home") << ""
                                     << "/cfg"
                                     << "/home/u"
                                     << "/cfg/Pallo/bridge.json";
    QTest::newRow("home when xdg unset") << ""
                                         << ""
                                         << "/home/u"
                                         << "/home/u/.config/Pallo/bridge.json";
    QTest::newRow("relative xdg ignored") << ""
                                          << "cfg"
                                          << "/home/u"
                                          << "/home/u/.config/Pallo/bridge.json";
}

void TestConfigPath::pathFromEnvironment()
{
    QFETCH(QString, explicitPath);
    QFETCH(QString, configHome);
    QFETCH(QString, home);
    QFETCH(QString, expected);

    QMap<QByteArray, QByteArray> env;
    if (!explicitPath.isEmpty())
        env["PALLO_BRIDGE_CONFIG"] = explicitPath.toUtf8();
    if (!configHome.isEmpty())
        env["XDG_CONFIG_HOME"] = configHome.toUtf8();
    env["HOME"] = home.toUtf8();
    const std::string path = bg::default_config_path([&env](const char* name) -> const char* {
        auto it = env.constFind(name);
        return it == env.constEnd() ? nullptr : it.value().constData();
    });
    QCOMPARE(QString::fromStdString(path), expected);
}

QTEST_APPLESS_MAIN(TestConfigPath)
#include "test-config-path.moc"
