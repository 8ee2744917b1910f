// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/popup-menu-wdiget.h"

#include "ui_popup-menu-wdiget.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

PopupMenuWdiget::PopupMenuWdiget(QWidget* parent)
    : QMenu(parent), ui(new Ui::PopupMenuWdiget), m_group(new QButtonGroup(this))
{
    ui->setupUi(this);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);

    m_entries = {
        {ui->toolButton_menu_zoom, "label_zoom_icon", "label_zoom_text",
         ":/images/tool_menu_magnifier.png", ":/images/tool_menu_magnifier_hover.png"},
        {ui->toolButton_menu_timer, "label_timer_icon", "label_timer_text",
         ":/images/tool_menu_timer.png", ":/images/tool_menu_timer_hover.png"},
        {ui->toolButton_menu_screenshot, "label_screenshot_icon", "label_screenshot_text",
         ":/images/tool_menu_cut.png", ":/images/tool_menu_cut_hover.png"},
    };
    const QString captions[] = {tr("PopupMenuWidget.Btn.FangDaJing"),
                                tr("PopupMenuWidget.Btn.Clock"),
                                tr("PopupMenuWidget.Btn.ScreenShot")};
    for (int i = 0; i < m_entries.size(); ++i) {
        const Entry& e = m_entries[i];
        auto* row = new QHBoxLayout(e.button);
        // The menu's width is fixed, so the caption gets what the icon leaves: the
        // style's default margins would cut off the longest caption.
        row->setContentsMargins(4, 0, 2, 0);
        row->setSpacing(4);
        QLabel* icon = addLabel(e.button, e.iconName);
        QLabel* caption = addLabel(e.button, e.textName);
        caption->setText(captions[i]);
        caption->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        row->addWidget(icon);
        row->addWidget(caption, 1);
        m_group->addButton(static_cast<QAbstractButton*>(e.button), i + 1);
        e.button->installEventFilter(this);
        applyStyle(e, false);
    }
    // The screenshot entry starts with a slightly different rule that looks the same.
    const Entry& shot = m_entries[2];
    shot.button->setStyleSheet(QStringLiteral("QLabel#label_screenshot_icon{border-image:url(%1);"
                                              "color:#808EA0;}QLabel#label_screenshot_text{"
                                              "color:#808EA0;}")
                                   .arg(shot.icon));

    connect(m_group, &QButtonGroup::idClicked, this, &PopupMenuWdiget::sg_buttonType);
    connect(m_group, &QButtonGroup::idClicked, this, &QWidget::hide);
}

PopupMenuWdiget::~PopupMenuWdiget()
{
    delete ui;
}

QLabel* PopupMenuWdiget::addLabel(QWidget* button, const QString& name)
{
    auto* label = new QLabel(button);
    label->setObjectName(name);
    // Clicks go through the labels to the button beneath.
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

void PopupMenuWdiget::applyStyle(const Entry& e, bool hover)
{
    e.button->setStyleSheet(
        QStringLiteral("QLabel#%1{border-image:url(%2);}QLabel#%3{color:%4;}")
            .arg(e.iconName, hover ? e.hoverIcon : e.icon, e.textName,
                 hover ? QStringLiteral("#1D92FD") : QStringLiteral("#808EA0")));
}

bool PopupMenuWdiget::eventFilter(QObject* watched, QEvent* event)
{
    for (const Entry& e : qAsConst(m_entries)) {
        if (e.button != watched)
            continue;
        if (event->type() == QEvent::Enter)
            applyStyle(e, true);
        else if (event->type() == QEvent::Leave)
            applyStyle(e, false);
        break;
    }
    return false;
}
