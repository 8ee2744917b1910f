// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/pen-menu.h"

#include "ui_pen-menu.h"

#include <QButtonGroup>

PenMenu::PenMenu(QWidget* parent)
    : QMenu(parent), ui(new Ui::PenMenu), m_group(new QButtonGroup(this))
{
    ui->setupUi(this);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_StyledBackground);
    m_group->addButton(ui->toolButton_brush, 1);
    m_group->addButton(ui->toolButton_highlighter, 2);
    m_group->addButton(ui->toolButton_delay_erase, 3);
    m_group->setExclusive(true);
    ui->toolButton_brush->setChecked(true);
    connect(m_group, &QButtonGroup::idClicked, this, &PenMenu::slot_penchange);
}

PenMenu::~PenMenu()
{
    delete ui;
}

QString PenMenu::penName(int id)
{
    switch (id) {
    case 1:
        return QStringLiteral("brush");
    case 2:
        return QStringLiteral("highlighter");
    case 3:
        return QStringLiteral("delayerase");
    default:
        return QString();
    }
}

void PenMenu::slot_penchange(int id)
{
    const QString name = penName(id);
    if (!name.isEmpty()) {
        m_group->button(id)->setChecked(true);
        emit sg_penchange(name);
    }
    hide();
}

void PenMenu::slot_buttonClicked()
{
    emit m_group->idClicked(m_group->checkedId() % 3 + 1);
}
