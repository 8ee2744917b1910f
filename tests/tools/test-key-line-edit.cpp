// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"
#include "tools/key-line-edit.h"

#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

Q_DECLARE_METATYPE(KeyCapture::Action)

namespace {

const QString forbidden = "Common shortcut keys are disabled.";
const QString special = "Special keys cannot be set.";
const QString erased = "The shortcut key has been removed. Please set the key again.";
const QString single = "The shortcut key does not support single numbers or letters.";

QString englishFor(const char* key)
{
    return key ? QCoreApplication::translate("KeyLineEdit", key) : QString();
}

// One key press and release carrying its modifiers, as the window system reports the
// final key of a combination.
void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(widget, &up);
}

// An editor in a window with a second field beside it, so focus has somewhere to go.
struct EditorWindow
{
    QWidget window;
    KeyLineEdit* editor;
    QLineEdit* other;

    EditorWindow()
    {
        auto* layout = new QVBoxLayout(&window);
        editor = new KeyLineEdit(&window);
        other = new QLineEdit(&window);
        layout->addWidget(editor);
        layout->addWidget(other);
    }

    bool showFocused()
    {
        window.show();
        QApplication::setActiveWindow(&window);
        if (!QTest::qWaitForWindowActive(&window))
            return false;
        editor->setFocus();
        return QTest::qWaitFor([this] { return editor->hasFocus(); });
    }
};

} // namespace

class TestKeyLineEdit : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void decision_data();
    void decision();
    void typing_data();
    void typing();
    void commonShortcutRefusedInAnyCase_data();
    void commonShortcutRefusedInAnyCase();
    void startsReadOnlyWithTheTip();
    void acceptedKeyEndsTheEditOnce();
    void refusedKeyKeepsTheEditGoing();
    void tabStaysInTheEditor();
    void shortcutsOfTheWindowDoNotSteal();
    void leftPressSelectsEverything();
    void setKeyShowsTheKey();
    void setKeyUnknownComplains();
    void setKeyTextRecordsTheKey();

private:
    PalloTranslator* translator = nullptr;
};

void TestKeyLineEdit::initTestCase()
{
    translator = new PalloTranslator("english", this);
    QCoreApplication::installTranslator(translator);
    QCOMPARE(englishFor("KeyLineEdit.Error.HotkeyForbid"), forbidden);
}

void TestKeyLineEdit::cleanupTestCase()
{
    QCoreApplication::removeTranslator(translator);
}

void TestKeyLineEdit::decision_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<KeyCapture::Action>("action");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("text");

    const Qt::KeyboardModifiers none = Qt::NoModifier;
    const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const Qt::KeyboardModifiers alt = Qt::AltModifier;
    const Qt::KeyboardModifiers meta = Qt::MetaModifier;

    QTest::newRow("unknown") << int(Qt::Key_unknown) << none << KeyCapture::Ignore << QString()
                             << QString();
    QTest::newRow("unknown with ctrl")
        << int(Qt::Key_unknown) << ctrl << KeyCapture::Ignore << QString() << QString();
    QTest::newRow("meta alone") << int(Qt::Key_Meta) << meta << KeyCapture::Ignore << QString()
                                << QString();
    QTest::newRow("super alone") << int(Qt::Key_Super_L) << meta << KeyCapture::Ignore << QString()
                                 << QString();

    const struct
    {
        const char* name;
        int key;
    } commons[] = {{"ctrl+s", Qt::Key_S}, {"ctrl+c", Qt::Key_C}, {"ctrl+v", Qt::Key_V},
                   {"ctrl+a", Qt::Key_A}, {"ctrl+d", Qt::Key_D}, {"ctrl+z", Qt::Key_Z},
                   {"ctrl+x", Qt::Key_X}};
    for (const auto& common : commons)
        QTest::newRow(common.name)
            << common.key << ctrl << KeyCapture::Refuse << forbidden << QString();
    // Meta is not part of a combination, so it does not sneak a common key through.
    QTest::newRow("meta+ctrl+s") << int(Qt::Key_S) << (ctrl | meta) << KeyCapture::Refuse
                                 << forbidden << QString();
    QTest::newRow("ctrl+shift+s accepted")
        << int(Qt::Key_S) << (ctrl | shift) << KeyCapture::Accept << QString() << "Ctrl+Shift+S";
    QTest::newRow("alt+s accepted")
        << int(Qt::Key_S) << alt << KeyCapture::Accept << QString() << "Alt+S";
    QTest::newRow("ctrl+b accepted")
        << int(Qt::Key_B) << ctrl << KeyCapture::Accept << QString() << "Ctrl+B";
    QTest::newRow("ctrl+m accepted")
        << int(Qt::Key_M) << ctrl << KeyCapture::Accept << QString() << "Ctrl+M";

    QTest::newRow("bare K") << int(Qt::Key_K) << none << KeyCapture::Forget << single << QString();
    QTest::newRow("bare 7") << int(Qt::Key_7) << none << KeyCapture::Forget << single << QString();
    QTest::newRow("meta+K") << int(Qt::Key_K) << meta << KeyCapture::Forget << single << QString();
    QTest::newRow("shift+K") << int(Qt::Key_K) << shift << KeyCapture::Accept << QString()
                             << "Shift+K";
    QTest::newRow("alt+K") << int(Qt::Key_K) << alt << KeyCapture::Accept << QString() << "Alt+K";
    QTest::newRow("shift+7") << int(Qt::Key_7) << shift << KeyCapture::Accept << QString()
                             << "Shift+7";
    QTest::newRow("ctrl+alt+shift+K") << int(Qt::Key_K) << (ctrl | alt | shift)
                                      << KeyCapture::Accept << QString() << "Ctrl+Alt+Shift+K";
    QTest::newRow("meta+ctrl+K") << int(Qt::Key_K) << (ctrl | meta) << KeyCapture::Accept
                                 << QString() << "Ctrl+K";
    QTest::newRow("bare Home") << int(Qt::Key_Home) << none << KeyCapture::Accept << QString()
                               << "Home";
    QTest::newRow("bare F13") << int(Qt::Key_F13) << none << KeyCapture::Accept << QString()
                              << "F13";

    QTest::newRow("F5") << int(Qt::Key_F5) << none << KeyCapture::Refuse << special << QString();
    QTest::newRow("ctrl+F5") << int(Qt::Key_F5) << ctrl << KeyCapture::Refuse << special
                             << QString();
    QTest::newRow("F1") << int(Qt::Key_F1) << none << KeyCapture::Refuse << special << QString();
    QTest::newRow("alt+F12") << int(Qt::Key_F12) << alt << KeyCapture::Refuse << special
                             << QString();
    const struct
    {
        const char* name;
        int key;
    } specials[] = {
        {"escape", Qt::Key_Escape},   {"tab", Qt::Key_Tab},     {"backtab", Qt::Key_Backtab},
        {"return", Qt::Key_Return},   {"enter", Qt::Key_Enter}, {"shift", Qt::Key_Shift},
        {"control", Qt::Key_Control}, {"alt", Qt::Key_Alt},     {"capslock", Qt::Key_CapsLock}};
    for (const auto& key : specials)
        QTest::newRow(key.name) << key.key << none << KeyCapture::Refuse << special << QString();
    QTest::newRow("ctrl+return") << int(Qt::Key_Return) << ctrl << KeyCapture::Refuse << special
                                 << QString();

    QTest::newRow("space") << int(Qt::Key_Space) << none << KeyCapture::Erase << erased
                           << QString();
    QTest::newRow("backspace") << int(Qt::Key_Backspace) << none << KeyCapture::Erase << erased
                               << QString();
    QTest::newRow("ctrl+space") << int(Qt::Key_Space) << ctrl << KeyCapture::Erase << erased
                                << QString();
}

void TestKeyLineEdit::decision()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(KeyCapture::Action, action);
    QFETCH(QString, error);
    QFETCH(QString, text);

    const KeyCapture capture = captureKey(key, modifiers);
    QCOMPARE(capture.action, action);
    QCOMPARE(englishFor(capture.error), error);
    QCOMPARE(capture.text, text);
}

void TestKeyLineEdit::typing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("recorded");
    QTest::addColumn<QString>("error");

    // The editor starts out showing "Alt+Q" with Q recorded.
    QTest::newRow("alt+K") << int(Qt::Key_K) << Qt::KeyboardModifiers(Qt::AltModifier) << "Alt+K"
                           << int(Qt::Key_K) << QString();
    QTest::newRow("shift+K") << int(Qt::Key_K) << Qt::KeyboardModifiers(Qt::ShiftModifier)
                             << "Shift+K" << int(Qt::Key_K) << QString();
    QTest::newRow("meta+alt+P") << int(Qt::Key_P)
                                << Qt::KeyboardModifiers(Qt::AltModifier | Qt::MetaModifier)
                                << "Alt+P" << int(Qt::Key_P) << QString();
    QTest::newRow("ctrl+v") << int(Qt::Key_V) << Qt::KeyboardModifiers(Qt::ControlModifier)
                            << "Alt+Q" << int(Qt::Key_Q) << forbidden;
    QTest::newRow("bare K") << int(Qt::Key_K) << Qt::KeyboardModifiers() << "Alt+Q"
                            << int(Qt::Key_unknown) << single;
    QTest::newRow("F5") << int(Qt::Key_F5) << Qt::KeyboardModifiers() << "Alt+Q" << int(Qt::Key_Q)
                        << special;
    QTest::newRow("ctrl+F5") << int(Qt::Key_F5) << Qt::KeyboardModifiers(Qt::ControlModifier)
                             << "Alt+Q" << int(Qt::Key_Q) << special;
    QTest::newRow("escape") << int(Qt::Key_Escape) << Qt::KeyboardModifiers() << "Alt+Q"
                            << int(Qt::Key_Q) << special;
    QTest::newRow("return") << int(Qt::Key_Return) << Qt::KeyboardModifiers() << "Alt+Q"
                            << int(Qt::Key_Q) << special;
    QTest::newRow("backspace") << int(Qt::Key_Backspace) << Qt::KeyboardModifiers() << QString()
                               << int(Qt::Key_unknown) << erased;
    QTest::newRow("space") << int(Qt::Key_Space) << Qt::KeyboardModifiers() << QString()
                           << int(Qt::Key_unknown) << erased;
}

// What a presenter sees in the editor after pressing a key, and what it reports.
void TestKeyLineEdit::typing()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, shown);
    QFETCH(int, recorded);
    QFETCH(QString, error);

    EditorWindow w;
    w.editor->setKeyText("Alt+Q");
    QVERIFY(w.showFocused());
    QSignalSpy errors(w.editor, &KeyLineEdit::sg_error);
    QSignalSpy finished(w.editor, &QLineEdit::editingFinished);

    press(w.editor, key, modifiers);

    QCOMPARE(w.editor->text(), shown);
    QCOMPARE(w.editor->key(), recorded);
    if (error.isEmpty()) {
        QCOMPARE(errors.count(), 0);
        QVERIFY(!w.editor->hasFocus());
        QCOMPARE(finished.count(), 1);
    } else {
        QCOMPARE(errors.count(), 1);
        QCOMPARE(errors.at(0).at(0).toString(), error);
        QVERIFY(w.editor->hasFocus());
        QCOMPARE(finished.count(), 0);
    }
}

void TestKeyLineEdit::commonShortcutRefusedInAnyCase_data()
{
    QTest::addColumn<char>("letter");
    for (char letter : {'s', 'S', 'c', 'C', 'v', 'V', 'a', 'A', 'd', 'D', 'z', 'Z', 'x', 'X'})
        QTest::newRow(qPrintable(QString("ctrl+%1").arg(letter))) << letter;
}

// Typed as a character, lower or upper case, with Ctrl held down first: the Control
// key on its own is refused as special, then the combination as common.
void TestKeyLineEdit::commonShortcutRefusedInAnyCase()
{
    QFETCH(char, letter);
    EditorWindow w;
    w.editor->setKeyText("Ctrl+B");
    QVERIFY(w.showFocused());
    QSignalSpy errors(w.editor, &KeyLineEdit::sg_error);

    QTest::keyClick(w.editor, letter, Qt::ControlModifier);

    QCOMPARE(errors.count(), 2);
    QCOMPARE(errors.at(0).at(0).toString(), special);
    QCOMPARE(errors.at(1).at(0).toString(), forbidden);
    QCOMPARE(w.editor->text(), QString("Ctrl+B"));
    QCOMPARE(w.editor->key(), int(Qt::Key_B));
}

void TestKeyLineEdit::startsReadOnlyWithTheTip()
{
    KeyLineEdit editor;
    QVERIFY(editor.isReadOnly());
    QCOMPARE(editor.key(), int(Qt::Key_unknown));
    QCOMPARE(editor.text(), QString("Press the keyboard to set"));
}

void TestKeyLineEdit::acceptedKeyEndsTheEditOnce()
{
    EditorWindow w;
    QVERIFY(w.showFocused());
    QStringList events;
    connect(w.editor, &QLineEdit::editingFinished, this,
            [&] { events << "finished:" + w.editor->text(); });
    connect(w.editor, &KeyLineEdit::sg_error, this, [&](const QString& e) { events << e; });

    // Typed as a person does: Shift goes down first and is refused on its own.
    QTest::keyClick(w.editor, Qt::Key_K);
    QTest::keyClick(w.editor, Qt::Key_K, Qt::ShiftModifier);

    QCOMPARE(events, QStringList({single, special, "finished:Shift+K"}));
    QVERIFY(!w.editor->hasFocus());
}

void TestKeyLineEdit::refusedKeyKeepsTheEditGoing()
{
    EditorWindow w;
    w.editor->setKeyText("Alt+S");
    QVERIFY(w.showFocused());
    QSignalSpy finished(w.editor, &QLineEdit::editingFinished);
    QSignalSpy errors(w.editor, &KeyLineEdit::sg_error);

    press(w.editor, Qt::Key_C, Qt::ControlModifier);
    press(w.editor, Qt::Key_F5);
    press(w.editor, Qt::Key_Backspace);

    QCOMPARE(errors.count(), 3);
    QCOMPARE(errors.at(2).at(0).toString(), erased);
    QCOMPARE(finished.count(), 0);
    QVERIFY(w.editor->hasFocus());
    QVERIFY(w.editor->text().isEmpty());

    press(w.editor, Qt::Key_S, Qt::AltModifier);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(w.editor->text(), QString("Alt+S"));
}

// Tab would normally move on to the next field; here it is a refused key.
void TestKeyLineEdit::tabStaysInTheEditor()
{
    EditorWindow w;
    w.editor->setKeyText("Alt+S");
    QVERIFY(w.showFocused());
    QSignalSpy errors(w.editor, &KeyLineEdit::sg_error);

    press(w.editor, Qt::Key_Tab);
    press(w.editor, Qt::Key_Backtab, Qt::ShiftModifier);

    QCOMPARE(errors.count(), 2);
    QCOMPARE(errors.at(0).at(0).toString(), special);
    QCOMPARE(errors.at(1).at(0).toString(), special);
    QVERIFY(w.editor->hasFocus());
    QVERIFY(!w.other->hasFocus());
    QCOMPARE(w.editor->text(), QString("Alt+S"));
}

// A combination the window uses itself still lands in the editor.
void TestKeyLineEdit::shortcutsOfTheWindowDoNotSteal()
{
    EditorWindow w;
    auto* taken = new QShortcut(QKeySequence("Alt+K"), &w.window);
    QSignalSpy fired(taken, &QShortcut::activated);
    QVERIFY(w.showFocused());

    QTest::keyClick(w.editor, Qt::Key_K, Qt::AltModifier);

    QCOMPARE(fired.count(), 0);
    QCOMPARE(w.editor->text(), QString("Alt+K"));

    w.other->setFocus();
    QTRY_VERIFY(w.other->hasFocus());
    QTest::keyClick(w.other, Qt::Key_K, Qt::AltModifier);
    QCOMPARE(fired.count(), 1);
}

void TestKeyLineEdit::leftPressSelectsEverything()
{
    EditorWindow w;
    w.editor->setKeyText("Ctrl+Shift+K");
    w.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w.window));
    QVERIFY(!w.editor->hasSelectedText());

    QTest::mouseClick(w.editor, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));

    QCOMPARE(w.editor->selectedText(), QString("Ctrl+Shift+K"));
}

void TestKeyLineEdit::setKeyShowsTheKey()
{
    KeyLineEdit editor;
    QSignalSpy errors(&editor, &KeyLineEdit::sg_error);
    editor.setKey(Qt::Key_F9);
    QCOMPARE(editor.text(), QString("F9"));
    QCOMPARE(editor.key(), int(Qt::Key_F9));
    editor.setKey(Qt::Key_K);
    QCOMPARE(editor.text(), QString("K"));
    QCOMPARE(editor.key(), int(Qt::Key_K));
    QCOMPARE(errors.count(), 0);
}

void TestKeyLineEdit::setKeyUnknownComplains()
{
    KeyLineEdit editor;
    editor.setKey(Qt::Key_M);
    QSignalSpy errors(&editor, &KeyLineEdit::sg_error);
    editor.setKey(Qt::Key_unknown);
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(0).toString(), QString("Unknown key, please set the key again."));
    QCOMPARE(editor.text(), QString("M"));
}

void TestKeyLineEdit::setKeyTextRecordsTheKey()
{
    KeyLineEdit editor;
    editor.setKeyText("Ctrl+B");
    QCOMPARE(editor.text(), QString("Ctrl+B"));
    QCOMPARE(editor.key(), int(Qt::Key_B));
    editor.setKeyText("Alt+Shift+F7");
    QCOMPARE(editor.key(), int(Qt::Key_F7));
    editor.setKeyText(QString());
    QVERIFY(editor.text().isEmpty());
    QCOMPARE(editor.key(), int(Qt::Key_unknown));
}

QTEST_MAIN(TestKeyLineEdit)
#include "test-key-line-edit.moc"
