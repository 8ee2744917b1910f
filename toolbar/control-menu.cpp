// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/control-menu.h"

#include "ui_control-menu.h"

#include <QButtonGroup>

ControlMenu::ControlMenu(QWidget* parent)
    : QMenu(parent), ui(new Ui::ControlMenu), m_group(new QButtonGroup(this))
{
    ui->setupUi(this);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_StyledBackground);
    m_group->addButton(ui->toolButton_C_choose, 1);
    m_group->addButton(ui->toolButton_C_drag, 2);
    m_group->setExclusive(true);
    ui->toolButton_C_choose->setChecked(true);
    connect(m_group, &QButtonGroup::idClicked, this, &ControlMenu::slot_controlchange);
}

ControlMenu::~ControlMenu()
{
    delete ui;
}

void ControlMenu::slot_controlchange(int id)
{
    if (id == 1) {
        ui->toolButton_C_choose->setChecked(true);
        emit sg_controlchange(QStringLiteral("choose"));
    } else if (id == 2) {
        ui->toolButton_C_drag->setChecked(true);
        emit sg_controlchange(QStringLiteral("drag"));
    }
    hide();
}

void ControlMenu::slot_buttonClicked()
{
    emit m_group->idClicked(m_group->checkedId() % 2 + 1);
}
