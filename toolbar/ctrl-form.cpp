// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/ctrl-form.h"

#include "canvas/graphics-view.h"

#include <QButtonGroup>

CtrlForm::CtrlForm(QWidget* parent)
    : QWidget(parent), m_figure_group(new QButtonGroup(this)),
      m_view(new pallo::GraphicsView(true, nullptr))
{
    m_figure_group->setExclusive(true);
    m_view->attachCtrlForm(this);
}

CtrlForm::~CtrlForm() = default;
