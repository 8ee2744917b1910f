// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/font-size-menu.h"

#include "common/board-settings.h"
#include "ui_font-size-menu.h"

#include <QButtonGroup>
#include <QSettings>

namespace {
const char* const fontSizeKey = "font_size";
}

FontSizeMenu::FontSizeMenu(QWidget* parent)
    : QMenu(parent), ui(new Ui::FontSizeMenu), m_group(new QButtonGroup(this)),
      m_settings(openBoardSettings(this))
{
    ui->setupUi(this);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    m_group->addButton(ui->toolButton_bigFontSize, 1);
    m_group->addButton(ui->toolButton_midFontSize, 2);
    m_group->addButton(ui->toolButton_smallFontSize, 3);
    m_group->setExclusive(true);
    ui->toolButton_smallFontSize->setChecked(true);
    m_sizeType = m_settings->value(fontSizeKey, 1).toInt();
    connect(m_group, &QButtonGroup::idClicked, this, &FontSizeMenu::slot_fontSize);
    connect(m_group, &QButtonGroup::idClicked, this, &QWidget::hide);
}

FontSizeMenu::~FontSizeMenu()
{
    delete ui;
}

int FontSizeMenu::pointsForType(int type)
{
    switch (type) {
    case 2:
        return 17;
    case 3:
        return 11;
    default:
        return 26;
    }
}

void FontSizeMenu::slot_fontSize(int type)
{
    m_settings->setValue(fontSizeKey, type);
    m_sizeType = type;
    emit sg_fontSize(pointsForType(type));
}
