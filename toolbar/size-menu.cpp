// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/size-menu.h"

#include "common/board-settings.h"
#include "ui_size-menu.h"

#include <QButtonGroup>
#include <QSettings>
#include <QTimer>

namespace {
const char* const penWidthKey = "pen_width";
}

SizeMenu::SizeMenu(QWidget* parent)
    : QWidget(parent), ui(new Ui::SizeMenu), m_group(new QButtonGroup(this)),
      m_settings(openBoardSettings(this))
{
    ui->setupUi(this);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_StyledBackground);
    m_group->addButton(ui->pushButton_big, 1);
    m_group->addButton(ui->pushButton_mid, 2);
    m_group->addButton(ui->pushButton_small, 3);
    m_group->setExclusive(true);
    // The checked entry stays "small" whatever width was stored; only the canvas
    // receives the stored width.
    ui->pushButton_small->setChecked(true);
    connect(m_group, &QButtonGroup::idClicked, this, &SizeMenu::slot_sizeChange);
    const int stored = m_settings->value(penWidthKey, 3).toInt();
    QTimer::singleShot(0, this, [this, stored] { slot_sizeChange(stored); });
}

SizeMenu::~SizeMenu()
{
    delete ui;
}

int SizeMenu::widthForId(int id)
{
    switch (id) {
    case 1:
        return 6;
    case 2:
        return 3;
    default:
        return 1;
    }
}

void SizeMenu::slot_sizeChange(int id)
{
    m_settings->setValue(penWidthKey, id);
    emit sg_sizeChange(widthForId(id));
    hide();
}
