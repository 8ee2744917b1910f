// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

class QLayout;
class QWidget;

// Turns a widget's layout tree by a quarter: vertical boxes become horizontal ones
// and back, grid cells (r, c) move to (c, r), widgets' minimum and maximum sizes and
// the margins are transposed. Items keep their order, so turning twice restores the
// original arrangement. Widgets inside the tree that have layouts of their own are
// turned as well. Returns false when the widget has no layout.
bool rotateWidgetLayout(QWidget* widget);

// The same for a single layout, which is emptied: returns its turned replacement
// (without parent, owning the turned sub-layouts) that the caller installs in its
// place. Spacings are carried over, margins transposed.
QLayout* rotatedLayout(QLayout* layout);
