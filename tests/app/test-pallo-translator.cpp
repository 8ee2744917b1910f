// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"

#include <QCoreApplication>
#include <QFile>
#include <QtTest>

namespace {

// Asks the way the board's forms do: through the installed translators.
QString lookUp(const char* context, const char* key)
{
    return QCoreApplication::translate(context, key);
}

} // namespace

class TestPalloTranslator : public QObject
{
    Q_OBJECT

private slots:
    void englishTexts_data();
    void englishTexts();
    void chineseTexts_data();
    void chineseTexts();
    void languageChoosesTheFile_data();
    void languageChoosesTheFile();
    void capitalEnglishLoadsChinese();
    void sameKeyUnderTwoContexts();
    void missingKeyShowsTheKey();
    void filesCarryHostKeysToo();
    void dragKeyIsWrittenWithABlankBeforeTheEqualsSign();
    void removedTranslatorNoLongerAnswers();
};

void TestPalloTranslator::englishTexts_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("CtrlForm.Text.Title") << "CtrlForm.Text.Title"
                                         << "setting";
    QTest::newRow("CtrlForm.Btn.AboutUs") << "CtrlForm.Btn.AboutUs"
                                          << "about us";
    QTest::newRow("CtrlForm.Btn.VersionCheck") << "CtrlForm.Btn.VersionCheck"
                                               << "check update";
    QTest::newRow("CtrlForm.Btn.GotoOfficialWeb") << "CtrlForm.Btn.GotoOfficialWeb"
                                                  << "go to the official website to see";
    QTest::newRow("CtrlForm.Btn.OK") << "CtrlForm.Btn.OK"
                                     << "OK";
    QTest::newRow("CtrlForm.Btn.Select") << "CtrlForm.Btn.Select"
                                         << "operating desktop";
    QTest::newRow("CtrlForm.Btn.Drag") << "CtrlForm.Btn.Drag"
                                       << "moving handwriting";
    QTest::newRow("CtrlForm.Btn.Pen") << "CtrlForm.Btn.Pen"
                                      << "pencil";
    QTest::newRow("CtrlForm.Btn.MarkPen") << "CtrlForm.Btn.MarkPen"
                                          << "mark pencil";
    QTest::newRow("CtrlForm.Btn.Rectangle") << "CtrlForm.Btn.Rectangle"
                                            << "rectangle";
    QTest::newRow("CtrlForm.Btn.Line") << "CtrlForm.Btn.Line"
                                       << "straight line";
    QTest::newRow("CtrlForm.Btn.Circle") << "CtrlForm.Btn.Circle"
                                         << "circle";
    QTest::newRow("CtrlForm.Btn.Arrow") << "CtrlForm.Btn.Arrow"
                                        << "arrow";
    QTest::newRow("CtrlForm.Tips.WordTips") << "CtrlForm.Tips.WordTips"
                                            << "text right-click optional size";
    QTest::newRow("CtrlForm.Btn.Word") << "CtrlForm.Btn.Word"
                                       << "text";
    QTest::newRow("CtrlForm.Btn.Eraser") << "CtrlForm.Btn.Eraser"
                                         << "eraser";
    QTest::newRow("CtrlForm.Btn.PenSize") << "CtrlForm.Btn.PenSize"
                                          << "brush size";
    QTest::newRow("CtrlForm.Btn.LineSize") << "CtrlForm.Btn.LineSize"
                                           << "thickness";
    QTest::newRow("CtrlForm.Btn.Undo") << "CtrlForm.Btn.Undo"
                                       << "repeal";
    QTest::newRow("CtrlForm.Btn.Redo") << "CtrlForm.Btn.Redo"
                                       << "undo";
    QTest::newRow("CtrlForm.Btn.Clear") << "CtrlForm.Btn.Clear"
                                        << "Clear";
    QTest::newRow("CtrlForm.Tips.ToolTips") << "CtrlForm.Tips.ToolTips"
                                            << "tool selection right-click optional";
    QTest::newRow("CtrlForm.Btn.FangDaJing") << "CtrlForm.Btn.FangDaJing"
                                             << "magnifier";
    QTest::newRow("CtrlForm.Btn.Close") << "CtrlForm.Btn.Close"
                                        << "close";
    QTest::newRow("FontSizeMenu.Btn.Big") << "FontSizeMenu.Btn.Big"
                                          << "L";
    QTest::newRow("FontSizeMenu.Btn.Normal") << "FontSizeMenu.Btn.Normal"
                                             << "M";
    QTest::newRow("FontSizeMenu.Btn.Small") << "FontSizeMenu.Btn.Small"
                                            << "S";
    QTest::newRow("KeyLineEdit.Tips.ClickKeyboardToSet") << "KeyLineEdit.Tips.ClickKeyboardToSet"
                                                         << "Press the keyboard to set";
    QTest::newRow("KeyLineEdit.Error.UnknownKey") << "KeyLineEdit.Error.UnknownKey"
                                                  << "Unknown key, please set the key again.";
    QTest::newRow("KeyLineEdit.Error.SpecialKey") << "KeyLineEdit.Error.SpecialKey"
                                                  << "Special keys cannot be set.";
    QTest::newRow("KeyLineEdit.Error.HotKeyErased")
        << "KeyLineEdit.Error.HotKeyErased"
        << "The shortcut key has been removed. Please set the key again.";
    QTest::newRow("KeyLineEdit.Text.Tips") << "KeyLineEdit.Text.Tips"
                                           << "tips";
    QTest::newRow("KeyLineEdit.Error.NotSupportSingleNumOrWord")
        << "KeyLineEdit.Error.NotSupportSingleNumOrWord"
        << "The shortcut key does not support single numbers or letters.";
    QTest::newRow("KeyLineEdit.Error.HotkeyForbid") << "KeyLineEdit.Error.HotkeyForbid"
                                                    << "Common shortcut keys are disabled.";
    QTest::newRow("PixLabel.Btn.Close") << "PixLabel.Btn.Close"
                                        << "close";
    QTest::newRow("PopupMenuWidget.Btn.FangDaJing") << "PopupMenuWidget.Btn.FangDaJing"
                                                    << "magnifier";
    QTest::newRow("PopupMenuWidget.Btn.Clock") << "PopupMenuWidget.Btn.Clock"
                                               << "Timer";
    QTest::newRow("PopupMenuWidget.Btn.ScreenShot") << "PopupMenuWidget.Btn.ScreenShot"
                                                    << "Screenshot";
    QTest::newRow("ShadowFrameWidget.Text.SelectImageSavePath")
        << "ShadowFrameWidget.Text.SelectImageSavePath"
        << "Choose where to store pictures";
    QTest::newRow("ShadowFrameWidget.Text.Setting") << "ShadowFrameWidget.Text.Setting"
                                                    << "setting";
    QTest::newRow("ShadowFrameWidget.Text.HotkeySetting") << "ShadowFrameWidget.Text.HotkeySetting"
                                                          << "shortcut setting";
    QTest::newRow("ShadowFrameWidget.Btn.FangDaJing") << "ShadowFrameWidget.Btn.FangDaJing"
                                                      << "magnifier";
    QTest::newRow("ShadowFrameWidget.Btn.Clock") << "ShadowFrameWidget.Btn.Clock"
                                                 << "Timer";
    QTest::newRow("ShadowFrameWidget.Btn.ScreenShot") << "ShadowFrameWidget.Btn.ScreenShot"
                                                      << "Screenshot";
    QTest::newRow("ShadowFrameWidget.Text.ScreenShotSetting")
        << "ShadowFrameWidget.Text.ScreenShotSetting"
        << "Screenshot setting";
    QTest::newRow("ShadowFrameWidget.Text.ScreenShotDir") << "ShadowFrameWidget.Text.ScreenShotDir"
                                                          << "Screenshot file";
    QTest::newRow("ShadowFrameWidget.Btn.Modify") << "ShadowFrameWidget.Btn.Modify"
                                                  << "modify";
    QTest::newRow("ShadowFrameWidget.Btn.Open") << "ShadowFrameWidget.Btn.Open"
                                                << "open";
    QTest::newRow("ShadowFrameWidget.Text.ImageFormat") << "ShadowFrameWidget.Text.ImageFormat"
                                                        << "Screenshot format";
    QTest::newRow("TimeWidget.Text.FullScreen") << "TimeWidget.Text.FullScreen"
                                                << "fullscree";
    QTest::newRow("TimeWidget.Btn.Pause") << "TimeWidget.Btn.Pause"
                                          << "pause";
    QTest::newRow("TimeWidget.Btn.Start") << "TimeWidget.Btn.Start"
                                          << "start";
    QTest::newRow("TimeWidget.Btn.Reset") << "TimeWidget.Btn.Reset"
                                          << "reset";
    QTest::newRow("Widget.Btn.FullScreen") << "Widget.Btn.FullScreen"
                                           << "fullscree";
    QTest::newRow("Widget.Btn.Pause") << "Widget.Btn.Pause"
                                      << "pause";
    QTest::newRow("Widget.Btn.Start") << "Widget.Btn.Start"
                                      << "start";
    QTest::newRow("Widget.Btn.Reset") << "Widget.Btn.Reset"
                                      << "reset";
    QTest::newRow("WidgetTest.Text.CountDown") << "WidgetTest.Text.CountDown"
                                               << "Countdown";
    QTest::newRow("WidgetTest.Text.Clock") << "WidgetTest.Text.Clock"
                                           << "Timer";
    QTest::newRow("ZoomWidget.Btn.WhiteTheme") << "ZoomWidget.Btn.WhiteTheme"
                                               << "Turn on the light";
    QTest::newRow("ZoomWidget.Btn.BlackTheme") << "ZoomWidget.Btn.BlackTheme"
                                               << "Turn off the light";
}

void TestPalloTranslator::englishTexts()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    PalloTranslator translator(QStringLiteral("english"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(lookUp("CtrlForm", key.toLatin1().constData()), text);
    QCoreApplication::removeTranslator(&translator);
}

void TestPalloTranslator::chineseTexts_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("CtrlForm.Text.Title") << "CtrlForm.Text.Title"
                                         << "设置";
    QTest::newRow("CtrlForm.Btn.AboutUs") << "CtrlForm.Btn.AboutUs"
                                          << "关于我们";
    QTest::newRow("CtrlForm.Btn.VersionCheck") << "CtrlForm.Btn.VersionCheck"
                                               << "检查更新";
    QTest::newRow("CtrlForm.Btn.GotoOfficialWeb") << "CtrlForm.Btn.GotoOfficialWeb"
                                                  << "去官网看看";
    QTest::newRow("CtrlForm.Btn.OK") << "CtrlForm.Btn.OK"
                                     << "确定";
    QTest::newRow("CtrlForm.Btn.Select") << "CtrlForm.Btn.Select"
                                         << "操作桌面";
    QTest::newRow("CtrlForm.Btn.Drag") << "CtrlForm.Btn.Drag"
                                       << "移动笔迹";
    QTest::newRow("CtrlForm.Btn.Pen") << "CtrlForm.Btn.Pen"
                                      << "铅笔";
    QTest::newRow("CtrlForm.Btn.MarkPen") << "CtrlForm.Btn.MarkPen"
                                          << "马克笔";
    QTest::newRow("CtrlForm.Btn.Rectangle") << "CtrlForm.Btn.Rectangle"
                                            << "矩形";
    QTest::newRow("CtrlForm.Btn.Line") << "CtrlForm.Btn.Line"
                                       << "直线";
    QTest::newRow("CtrlForm.Btn.Circle") << "CtrlForm.Btn.Circle"
                                         << "画圆";
    QTest::newRow("CtrlForm.Btn.Arrow") << "CtrlForm.Btn.Arrow"
                                        << "箭头";
    QTest::newRow("CtrlForm.Tips.WordTips") << "CtrlForm.Tips.WordTips"
                                            << "文字,单击右键可选大小";
    QTest::newRow("CtrlForm.Btn.Word") << "CtrlForm.Btn.Word"
                                       << "文字";
    QTest::newRow("CtrlForm.Btn.Eraser") << "CtrlForm.Btn.Eraser"
                                         << "橡皮";
    QTest::newRow("CtrlForm.Btn.PenSize") << "CtrlForm.Btn.PenSize"
                                          << "画笔尺寸";
    QTest::newRow("CtrlForm.Btn.LineSize") << "CtrlForm.Btn.LineSize"
                                           << "粗细";
    QTest::newRow("CtrlForm.Btn.Undo") << "CtrlForm.Btn.Undo"
                                       << "撤销";
    QTest::newRow("CtrlForm.Btn.Redo") << "CtrlForm.Btn.Redo"
                                       << "重做";
    QTest::newRow("CtrlForm.Btn.Clear") << "CtrlForm.Btn.Clear"
                                        << "清空";
    QTest::newRow("CtrlForm.Tips.ToolTips") << "CtrlForm.Tips.ToolTips"
                                            << "工具选择,单击右键可选";
    QTest::newRow("CtrlForm.Btn.FangDaJing") << "CtrlForm.Btn.FangDaJing"
                                             << "放大镜";
    QTest::newRow("CtrlForm.Btn.Close") << "CtrlForm.Btn.Close"
                                        << "关闭";
    QTest::newRow("FontSizeMenu.Btn.Big") << "FontSizeMenu.Btn.Big"
                                          << "大";
    QTest::newRow("FontSizeMenu.Btn.Normal") << "FontSizeMenu.Btn.Normal"
                                             << "中";
    QTest::newRow("FontSizeMenu.Btn.Small") << "FontSizeMenu.Btn.Small"
                                            << "小";
    QTest::newRow("KeyLineEdit.Tips.ClickKeyboardToSet") << "KeyLineEdit.Tips.ClickKeyboardToSet"
                                                         << "按下键盘设置";
    QTest::newRow("KeyLineEdit.Error.UnknownKey") << "KeyLineEdit.Error.UnknownKey"
                                                  << "未知按键,请重新按键设置!";
    QTest::newRow("KeyLineEdit.Error.SpecialKey") << "KeyLineEdit.Error.SpecialKey"
                                                  << "特殊按键不可设置!";
    QTest::newRow("KeyLineEdit.Error.HotKeyErased") << "KeyLineEdit.Error.HotKeyErased"
                                                    << "快捷键已去除,请重新按键设置!";
    QTest::newRow("KeyLineEdit.Text.Tips") << "KeyLineEdit.Text.Tips"
                                           << "提示";
    QTest::newRow("KeyLineEdit.Error.NotSupportSingleNumOrWord")
        << "KeyLineEdit.Error.NotSupportSingleNumOrWord"
        << "快捷键不支持单独数字或者字母!";
    QTest::newRow("KeyLineEdit.Error.HotkeyForbid") << "KeyLineEdit.Error.HotkeyForbid"
                                                    << "常用快捷键禁用!";
    QTest::newRow("PixLabel.Btn.Close") << "PixLabel.Btn.Close"
                                        << "关闭";
    QTest::newRow("PopupMenuWidget.Btn.FangDaJing") << "PopupMenuWidget.Btn.FangDaJing"
                                                    << "放大镜";
    QTest::newRow("PopupMenuWidget.Btn.Clock") << "PopupMenuWidget.Btn.Clock"
                                               << "计时器";
    QTest::newRow("PopupMenuWidget.Btn.ScreenShot") << "PopupMenuWidget.Btn.ScreenShot"
                                                    << "截图";
    QTest::newRow("ShadowFrameWidget.Text.SelectImageSavePath")
        << "ShadowFrameWidget.Text.SelectImageSavePath"
        << "选择图片存储位置";
    QTest::newRow("ShadowFrameWidget.Text.Setting") << "ShadowFrameWidget.Text.Setting"
                                                    << "设置";
    QTest::newRow("ShadowFrameWidget.Text.HotkeySetting") << "ShadowFrameWidget.Text.HotkeySetting"
                                                          << "快捷键设置";
    QTest::newRow("ShadowFrameWidget.Btn.FangDaJing") << "ShadowFrameWidget.Btn.FangDaJing"
                                                      << "放大镜";
    QTest::newRow("ShadowFrameWidget.Btn.Clock") << "ShadowFrameWidget.Btn.Clock"
                                                 << "定时器";
    QTest::newRow("ShadowFrameWidget.Btn.ScreenShot") << "ShadowFrameWidget.Btn.ScreenShot"
                                                      << "截图";
    QTest::newRow("ShadowFrameWidget.Text.ScreenShotSetting")
        << "ShadowFrameWidget.Text.ScreenShotSetting"
        << "截图设置";
    QTest::newRow("ShadowFrameWidget.Text.ScreenShotDir") << "ShadowFrameWidget.Text.ScreenShotDir"
                                                          << "截图文件夹";
    QTest::newRow("ShadowFrameWidget.Btn.Modify") << "ShadowFrameWidget.Btn.Modify"
                                                  << "修改";
    QTest::newRow("ShadowFrameWidget.Btn.Open") << "ShadowFrameWidget.Btn.Open"
                                                << "打开";
    QTest::newRow("ShadowFrameWidget.Text.ImageFormat") << "ShadowFrameWidget.Text.ImageFormat"
                                                        << "截图格式";
    QTest::newRow("TimeWidget.Text.FullScreen") << "TimeWidget.Text.FullScreen"
                                                << "全屏";
    QTest::newRow("TimeWidget.Btn.Pause") << "TimeWidget.Btn.Pause"
                                          << "暂停";
    QTest::newRow("TimeWidget.Btn.Start") << "TimeWidget.Btn.Start"
                                          << "开始";
    QTest::newRow("TimeWidget.Btn.Reset") << "TimeWidget.Btn.Reset"
                                          << "重置";
    QTest::newRow("Widget.Btn.FullScreen") << "Widget.Btn.FullScreen"
                                           << "全屏";
    QTest::newRow("Widget.Btn.Pause") << "Widget.Btn.Pause"
                                      << "暂停";
    QTest::newRow("Widget.Btn.Start") << "Widget.Btn.Start"
                                      << "开始";
    QTest::newRow("Widget.Btn.Reset") << "Widget.Btn.Reset"
                                      << "重置";
    QTest::newRow("WidgetTest.Text.CountDown") << "WidgetTest.Text.CountDown"
                                               << "倒计时";
    QTest::newRow("WidgetTest.Text.Clock") << "WidgetTest.Text.Clock"
                                           << "计时器";
    QTest::newRow("ZoomWidget.Btn.WhiteTheme") << "ZoomWidget.Btn.WhiteTheme"
                                               << "开灯";
    QTest::newRow("ZoomWidget.Btn.BlackTheme") << "ZoomWidget.Btn.BlackTheme"
                                               << "关灯";
}

void TestPalloTranslator::chineseTexts()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    PalloTranslator translator(QStringLiteral("chinese"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(lookUp("CtrlForm", key.toLatin1().constData()), text);
    QCoreApplication::removeTranslator(&translator);
}

void TestPalloTranslator::languageChoosesTheFile_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("penText");
    QTest::newRow("english") << "english"
                             << ":/language/en-US.ini"
                             << "pencil";
    QTest::newRow("empty") << ""
                           << ":/language/zh-cn.ini"
                           << "铅笔";
    QTest::newRow("unknown") << "klingon"
                             << ":/language/zh-cn.ini"
                             << "铅笔";
    QTest::newRow("upper case") << "ENGLISH"
                                << ":/language/zh-cn.ini"
                                << "铅笔";
    QTest::newRow("blank after") << "english "
                                 << ":/language/zh-cn.ini"
                                 << "铅笔";
}

void TestPalloTranslator::languageChoosesTheFile()
{
    QFETCH(QString, language);
    QFETCH(QString, file);
    QFETCH(QString, penText);
    QCOMPARE(PalloTranslator::languageFile(language), file);
    PalloTranslator translator(language);
    QCOMPARE(translator.translate("CtrlForm", "CtrlForm.Btn.Pen"), penText);
}

void TestPalloTranslator::capitalEnglishLoadsChinese()
{
    PalloTranslator translator(QStringLiteral("English"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(lookUp("CtrlForm", "CtrlForm.Btn.Undo"), QStringLiteral("撤销"));
    QCOMPARE(lookUp("CtrlForm", "CtrlForm.Btn.Redo"), QStringLiteral("重做"));
    QCoreApplication::removeTranslator(&translator);
}

void TestPalloTranslator::sameKeyUnderTwoContexts()
{
    PalloTranslator translator(QStringLiteral("english"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(lookUp("CtrlForm", "PopupMenuWidget.Btn.Clock"), QStringLiteral("Timer"));
    QCOMPARE(lookUp("pallo::GraphicsView", "PopupMenuWidget.Btn.Clock"), QStringLiteral("Timer"));
    QCOMPARE(lookUp(nullptr, "PopupMenuWidget.Btn.Clock"), QStringLiteral("Timer"));
    QCOMPARE(translator.translate("A", "TimeWidget.Btn.Reset"),
             translator.translate("B", "TimeWidget.Btn.Reset", "disambiguated", 3));
    QCoreApplication::removeTranslator(&translator);
}

void TestPalloTranslator::missingKeyShowsTheKey()
{
    PalloTranslator translator(QStringLiteral("english"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(translator.translate("CtrlForm", "CtrlForm.Btn.NoSuchButton"), QString());
    QCOMPARE(lookUp("CtrlForm", "CtrlForm.Btn.NoSuchButton"),
             QStringLiteral("CtrlForm.Btn.NoSuchButton"));
    QCoreApplication::removeTranslator(&translator);
}

void TestPalloTranslator::filesCarryHostKeysToo()
{
    PalloTranslator english(QStringLiteral("english"));
    PalloTranslator chinese(QStringLiteral(""));
    QCOMPARE(english.translate(nullptr, "Login.Btn.Login"), QStringLiteral("log in"));
    QCOMPARE(chinese.translate(nullptr, "Login.Btn.Login"), QStringLiteral("登录"));
    QVERIFY(!english.isEmpty());
}

void TestPalloTranslator::dragKeyIsWrittenWithABlankBeforeTheEqualsSign()
{
    QFile file(QStringLiteral(":/language/en-US.ini"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    QVERIFY(lines.contains(QByteArray("CtrlForm.Btn.Drag =\"moving handwriting\"")));
    PalloTranslator translator(QStringLiteral("english"));
    QCOMPARE(translator.translate(nullptr, "CtrlForm.Btn.Drag"),
             QStringLiteral("moving handwriting"));
}

void TestPalloTranslator::removedTranslatorNoLongerAnswers()
{
    PalloTranslator translator(QStringLiteral("english"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(lookUp("CtrlForm", "CtrlForm.Btn.Close"), QStringLiteral("close"));
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(lookUp("CtrlForm", "CtrlForm.Btn.Close"), QStringLiteral("CtrlForm.Btn.Close"));
}

QTEST_GUILESS_MAIN(TestPalloTranslator)
#include "test-pallo-translator.moc"
