// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsScene>

// The canvas's scene. It reports the selected texts whenever the selection changes.
class GraphicsScene : public QGraphicsScene
{
    Q_OBJECT

public:
    explicit GraphicsScene(QObject* parent = nullptr);
    ~GraphicsScene() override;

public slots:
    void slot_selectionChanged();
};
