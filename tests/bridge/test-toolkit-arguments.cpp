// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/options.h"
#include "bridge/toolkit-arguments.h"

#include <QApplication>
#include <QStyle>
#include <QtTest>

#include <string>
#include <vector>

namespace {

std::vector<std::string> toStd(const QStringList& list)
{
    std::vector<std::string> out;
    for (const QString& s : list)
        out.push_back(s.toStdString());
    return out;
}

QStringList fromStd(const std::vector<std::string>& list)
{
    QStringList out;
    for (const std::string& s : list)
        out << QString::fromStdString(s);
    return out;
}

// Holds a command line as the C strings main() receives.
class CommandLine
{
public:
    explicit CommandLine(const QStringList& arguments)
    {
        storage_.push_back("pallo-board");
        for (const QString& a : arguments)
            storage_.push_back(a.toUtf8());
        for (QByteArray& a : storage_)
            argv_.push_back(a.data());
        argc_ = static_cast<int>(argv_.size());
    }
    int& argc() { return argc_; }
    char** argv() { return argv_.data(); }

private:
    std::vector<QByteArray> storage_;
    std::vector<char*> argv_;
    int argc_ = 0;
};

} // namespace

class TestToolkitArguments : public QObject
{
    Q_OBJECT

private slots:
    void boardOptionsSurvive_data();
    void boardOptionsSurvive();
    void toolkitStillReadsItsOptions();
};

void TestToolkitArguments::boardOptionsSurvive_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("kept");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("language");

    const QStringList board{"--name", "p1", "-l", "english"};
    auto row = [&board](const char* tag, const QStringList& toolkit) {
        QTest::newRow(tag) << board + toolkit << board << "p1"
                           << "english";
    };
    row("-platform", {"-platform", "xcb"});
    row("--platform", {"--platform", "xcb"});
    row("-style", {"-style", "fusion"});
    row("--style", {"--style", "fusion"});
    row("-style=", {"-style=fusion"});
    row("-stylesheet", {"-stylesheet", "a.qss"});
    row("-display", {"-display", ":1"});
    row("--display", {"--display", ":1"});
    row("-session", {"-session", "abc"});
    row("-geometry", {"-geometry", "10x10"});
    row("-reverse", {"-reverse"});
    row("--reverse", {"--reverse"});
    row("-platformtheme", {"-platformtheme", "gtk3"});
    row("-platformpluginpath", {"-platformpluginpath", "/p"});
    row("-plugin", {"-plugin", "evdevtouch"});
    row("-qwindowgeometry", {"-qwindowgeometry", "10x10+0+0"});
    row("-qwindowtitle", {"-qwindowtitle", "t"});
    row("-qwindowicon", {"-qwindowicon", "i.png"});
    row("-qmljsdebugger=", {"-qmljsdebugger=port:1234"});
    row("-title -icon", {"-title", "t", "-icon", "i.png"});
    row("-name", {"-name", "wmclass"});
    row("-visual -sync", {"-visual", "33", "-sync"});
    row("-nograb -dograb", {"-nograb", "-dograb"});
    row("-widgetcount", {"-widgetcount"});
    row("-testability", {"-testability"});

    QTest::newRow("toolkit options first")
        << QStringList{"-platform", "offscreen", "-session",   "abc",
                       "-n",        "p2",        "--language", "chinese"}
        << QStringList{"-n", "p2", "--language", "chinese"} << "p2"
        << "chinese";
    QTest::newRow("own long name wins over the toolkit's double-dash form")
        << QStringList{"--name=p3", "-display", ":1"} << QStringList{"--name=p3"} << "p3"
        << "";
    QTest::newRow("unknown options left for the parser")
        << QStringList{"--name", "p4", "--other", "x", "extra"}
        << QStringList{"--name", "p4", "--other", "x", "extra"} << "p4"
        << "";
    QTest::newRow("toolkit option without its value at the end")
        << QStringList{"--name", "p5", "-platform"} << QStringList{"--name", "p5"} << "p5"
        << "";
}

void TestToolkitArguments::boardOptionsSurvive()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, kept);
    QFETCH(QString, name);
    QFETCH(QString, language);

    const std::vector<std::string> all = toStd(QStringList{"pallo-board"} + arguments);
    QCOMPARE(fromStd(bg::withoutToolkitOptions(all, {"name", "language"})),
             QStringList{"pallo-board"} + kept);

    CommandLine line(arguments);
    bg::Options options;
    QVERIFY(options.add("name", 'n', "namepipe name", true, bg::Value("")));
    QVERIFY(options.add("language", 'l', "app language", false, bg::Value("")));
    QVERIFY(options.parse(line.argc(), line.argv()));
    QCOMPARE(QString::fromStdString(options.value("name").toStdString()), name);
    QCOMPARE(QString::fromStdString(options.value("language").toStdString()), language);
    // The toolkit reads the same, untouched command line.
    QCOMPARE(fromStd(std::vector<std::string>(line.argv(), line.argv() + line.argc())),
             fromStd(all));
}

void TestToolkitArguments::toolkitStillReadsItsOptions()
{
    CommandLine line({"--name", "p1", "-l", "english", "-style", "fusion", "-reverse", "-platform",
                      "offscreen"});
    bg::Options options;
    QVERIFY(options.add("name", 'n', "namepipe name", true, bg::Value("")));
    QVERIFY(options.add("language", 'l', "app language", false, bg::Value("")));
    QVERIFY(options.parse(line.argc(), line.argv()));
    QCOMPARE(options.value("language").toStdString(), std::string("english"));

    QApplication app(line.argc(), line.argv());
    QCOMPARE(QGuiApplication::platformName(), QString("offscreen"));
    QCOMPARE(QApplication::style()->objectName().toLower(), QString("fusion"));
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    // Qt takes its own options out and leaves the board's.
    QCOMPARE(QCoreApplication::arguments().mid(1), (QStringList{"--name", "p1", "-l", "english"}));
}

QTEST_APPLESS_MAIN(TestToolkitArguments)
#include "test-toolkit-arguments.moc"
