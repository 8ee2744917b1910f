// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/scene-index-fit.h"

#include <QGraphicsScene>

#include <algorithm>

namespace {
// Below this many items the index's smallest tree serves.
constexpr int kLeastCount = 64;
// Qt's own choice for few items: 32 areas.
constexpr int kShallowest = 5;
// 4,096 areas of 30 by 17 pixels on a 1920 by 1080 screen, smaller than a stroke: deeper
// trees only cost each stroke more entries.
constexpr int kDeepest = 12;
} // namespace

bool SceneIndexFit::refitDue(int fittedFor, int count)
{
    return count >= std::max(kLeastCount, 2 * fittedFor);
}

void SceneIndexFit::itemCountIs(int count)
{
    if (!m_scene || !refitDue(m_fittedFor, count) ||
        m_scene->itemIndexMethod() != QGraphicsScene::BspTreeIndex)
        return;
    m_fittedFor = count;
    m_scene->setBspTreeDepth(depthFor(count));
}

int SceneIndexFit::depthFor(int count)
{
    int depth = 0;
    while (depth < kDeepest && (4 << depth) < count)
        ++depth;
    return std::max(depth, kShallowest);
}
