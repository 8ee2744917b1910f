// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

class QGraphicsScene;

// Qt's scene index, a tree of areas, takes its depth from the number of items there are when
// it is first built and keeps it. A canvas builds it while still empty and then gains its
// strokes one by one: the tree stays a single area, and each repaint, however small, looks
// at every stroke. Told how many items the drawing has, this has the index choose its depth
// again each time that number has doubled, so that a search keeps to the strokes near it.
class SceneIndexFit
{
public:
    explicit SceneIndexFit(QGraphicsScene* scene) : m_scene(scene) {}

    void itemCountIs(int count);

    // Whether an index last fitted for fittedFor items is to be fitted again for count.
    static bool refitDue(int fittedFor, int count);
    // The depth for count items: about one area of the screen per four items. Each stroke
    // is listed in every area it touches, so smaller areas cost memory for little speed.
    static int depthFor(int count);

private:
    QGraphicsScene* m_scene;
    int m_fittedFor = 0;
};
