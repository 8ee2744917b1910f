// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"
#include "common/scale-factor.h"
#include "common/style-sheet-loader.h"
#include "toolbar/control-menu.h"
#include "toolbar/ctrl-form.h"
#include "toolbar/font-size-menu.h"
#include "toolbar/pen-menu.h"
#include "toolbar/popup-menu-wdiget.h"
#include "toolbar/size-menu.h"

#include <QAbstractButton>
#include <QLabel>
#include <QtTest>

#include <functional>
#include <memory>

// Every text of the toolbar's menus fits its widget, in both languages. The scale factor
// comes from the screen (run with QT_FONT_DPI at 96, 120, 144 and 192).
class TestMenuTextsFit : public QObject
{
    Q_OBJECT

private slots:
    void textsFit_data();
    void textsFit();
};

namespace {

// The widgets of menu that show a text, with the text each cuts off; empty when all fit.
QStringList cutTexts(QWidget* menu)
{
    QStringList cut;
    const auto check = [&cut](QWidget* widget, const QString& text) {
        if (text.isEmpty() || !widget->isVisible())
            return;
        const int needed = widget->fontMetrics().horizontalAdvance(text);
        const int room = widget->contentsRect().width();
        if (needed > room)
            cut << QStringLiteral("%1 \"%2\" needs %3 px, has %4")
                       .arg(widget->objectName(), text)
                       .arg(needed)
                       .arg(room);
    };
    for (QLabel* label : menu->findChildren<QLabel*>())
        check(label, label->text());
    for (QAbstractButton* button : menu->findChildren<QAbstractButton*>())
        check(button, button->text());
    return cut;
}

} // namespace

void TestMenuTextsFit::textsFit_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("english") << QStringLiteral("english");
    QTest::newRow("chinese") << QStringLiteral("chinese");
}

void TestMenuTextsFit::textsFit()
{
    QFETCH(QString, language);
    // Each run of this program is meant for one scale factor: make sure it got it.
    const double dpi = qEnvironmentVariableIntValue("QT_FONT_DPI");
    QVERIFY(dpi > 0);
    QCOMPARE(screenScaleFactor(), dpi / 96.0);
    PalloTranslator translator(language);
    QCoreApplication::installTranslator(&translator);
    {
        // Built and opened as the board does: the stylesheet scaled for the screen, each
        // menu given its size and place by the toolbar as it opens.
        QVERIFY(loadApplicationStyleSheet());
        auto form = std::make_unique<CtrlForm>(nullptr, CtrlForm::CanvasShown::AtOnce);
        form->enterChooseState();
        form->showCanvasFullScreen();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));

        const QList<QPair<QWidget*, std::function<void()>>> menus = {
            {form->toolsMenu(), [&form] { form->toolsMenu()->popup(QPoint(100, 100)); }},
            {form->fontSizeMenu(), [&form] { form->fontSizeMenu()->popup(QPoint(100, 100)); }},
            {form->penMenu(), [&form] { form->penMenu()->popup(QPoint(100, 100)); }},
            {form->controlMenu(), [&form] { form->controlMenu()->popup(QPoint(100, 100)); }},
            {form->sizeMenu(),
             [&form] {
                 QTest::mousePress(form->findChild<QWidget*>(QStringLiteral("toolButton_size")),
                                   Qt::RightButton, Qt::NoModifier, QPoint(3, 3));
             }},
        };
        for (const auto& menu : menus) {
            menu.second();
            QVERIFY(QTest::qWaitForWindowExposed(menu.first));
            const QStringList cut = cutTexts(menu.first);
            QVERIFY2(cut.isEmpty(), qPrintable(QStringLiteral("scale %1: %2")
                                                   .arg(screenScaleFactor())
                                                   .arg(cut.join(QStringLiteral("; ")))));
            menu.first->hide();
        }
    }
    QCoreApplication::removeTranslator(&translator);
}

QTEST_MAIN(TestMenuTextsFit)
#include "test-menu-texts-fit.moc"
