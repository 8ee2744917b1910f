// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/layout-rotation.h"

#include "logging/log-categories.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLayout>
#include <QSpacerItem>
#include <QWidget>

namespace {

void transposeWidget(QWidget* w)
{
    const QSize min = w->minimumSize();
    const QSize max = w->maximumSize();
    w->setMinimumSize(min.transposed());
    w->setMaximumSize(max.transposed());
    if (w->layout())
        rotateWidgetLayout(w);
}

QSpacerItem* transposedSpacer(const QSpacerItem* spacer)
{
    const QSize hint = spacer->sizeHint();
    const QSizePolicy policy = spacer->sizePolicy();
    return new QSpacerItem(hint.height(), hint.width(), policy.verticalPolicy(),
                           policy.horizontalPolicy());
}

// Moves one item of an old layout into the new one, turning what it holds. Returns the
// layout item to add (a widget item, a turned layout or a turned spacer).
QLayoutItem* turnedItem(QLayoutItem* item)
{
    if (QWidget* w = item->widget()) {
        transposeWidget(w);
        return item;
    }
    if (QLayout* sub = item->layout()) {
        QLayout* turned = rotatedLayout(sub);
        if (!turned)
            return item;
        delete sub;
        return turned;
    }
    if (QSpacerItem* spacer = item->spacerItem()) {
        QSpacerItem* turned = transposedSpacer(spacer);
        delete spacer;
        return turned;
    }
    return item;
}

void copyCommon(const QLayout* from, QLayout* to)
{
    to->setObjectName(from->objectName());
    const QMargins m = from->contentsMargins();
    to->setContentsMargins(m.top(), m.left(), m.bottom(), m.right());
    to->setSizeConstraint(from->sizeConstraint());
}

QLayout* rotatedBox(QBoxLayout* old)
{
    const bool vertical =
        old->direction() == QBoxLayout::TopToBottom || old->direction() == QBoxLayout::BottomToTop;
    qCDebug(lcToolbar) << (vertical ? "QVBoxLayout" : "QHBoxLayout ");
    QBoxLayout* box = vertical ? static_cast<QBoxLayout*>(new QHBoxLayout)
                               : static_cast<QBoxLayout*>(new QVBoxLayout);
    copyCommon(old, box);
    box->setSpacing(old->spacing());
    while (old->count() > 0) {
        const int stretch = old->stretch(0);
        QLayoutItem* item = old->takeAt(0);
        const Qt::Alignment align = item->alignment();
        QLayoutItem* turned = turnedItem(item);
        if (QLayout* l = turned->layout()) {
            box->addLayout(l, stretch);
        } else if (QWidget* w = turned->widget()) {
            box->addWidget(w, stretch, align);
            delete turned;
        } else {
            box->addItem(turned);
            box->setStretch(box->count() - 1, stretch);
        }
    }
    return box;
}

QLayout* rotatedGrid(QGridLayout* old)
{
    qCDebug(lcToolbar) << "QGridLayout";
    auto* grid = new QGridLayout;
    copyCommon(old, grid);
    grid->setHorizontalSpacing(old->verticalSpacing());
    grid->setVerticalSpacing(old->horizontalSpacing());
    while (old->count() > 0) {
        int row = 0, column = 0, rowSpan = 1, columnSpan = 1;
        old->getItemPosition(0, &row, &column, &rowSpan, &columnSpan);
        QLayoutItem* item = old->takeAt(0);
        const Qt::Alignment align = item->alignment();
        QLayoutItem* turned = turnedItem(item);
        if (QLayout* l = turned->layout()) {
            qCDebug(lcToolbar) << "layout   "
                               << "row :" << column << "column :" << row;
            grid->addLayout(l, column, row, columnSpan, rowSpan, align);
        } else if (QWidget* w = turned->widget()) {
            qCDebug(lcToolbar) << "widget   "
                               << "row :" << column << "column :" << row;
            grid->addWidget(w, column, row, columnSpan, rowSpan, align);
            delete turned;
        } else {
            grid->addItem(turned, column, row, columnSpan, rowSpan, align);
        }
    }
    return grid;
}

} // namespace

QLayout* rotatedLayout(QLayout* layout)
{
    if (auto* grid = qobject_cast<QGridLayout*>(layout))
        return rotatedGrid(grid);
    if (auto* box = qobject_cast<QBoxLayout*>(layout))
        return rotatedBox(box);
    return nullptr;
}

bool rotateWidgetLayout(QWidget* widget)
{
    QLayout* old = widget->layout();
    if (!old)
        return false;
    QLayout* turned = rotatedLayout(old);
    if (!turned)
        return false;
    delete old;
    widget->setLayout(turned);
    return true;
}
