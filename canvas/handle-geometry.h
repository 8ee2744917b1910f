// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRectF>

// Geometry of the transform handles, kept apart from the item so that it can be checked on
// its own. Handle codes: -1 none, 0 the shape's outline, 1 bottom-right, 2 bottom-left,
// 3 top-left, 4 top-right corner, 5 the rotation handle.
namespace handles {

constexpr int None = -1;
constexpr int Outline = 0;
constexpr int BottomRight = 1;
constexpr int BottomLeft = 2;
constexpr int TopLeft = 3;
constexpr int TopRight = 4;
constexpr int Rotation = 5;

// Side of the square of each corner and of the rotation handle.
constexpr qreal SquareSide = 10;
// Distance of the rotation handle above the top edge.
constexpr qreal RotationDistance = 20;
// Width the outline is stroked to for hitting it.
constexpr qreal OutlineWidth = 5;
// Smallest distance, per axis, between a dragged corner and its anchor.
constexpr qreal MinimumExtent = 10;

// Centre of a handle (1 to 5) around frame, the shape's unrotated bounding rectangle.
QPointF handleCentre(int code, const QRectF& frame);
// The 10 by 10 square of a handle (1 to 5).
QRectF handleSquare(int code, const QRectF& frame);
// Which handle holds point: corners first, then the rotation handle, then the outline.
int handleCodeAt(const QPointF& point, const QRectF& frame, const QPainterPath& outline);
// The outline stroked as wide as it is hit.
QPainterPath outlineStroke(const QPainterPath& outline);

// Angle in degrees of the point (x, y) seen from the origin: 0 straight above, growing
// clockwise, in (-90, 270). Computed in single precision.
float rotationAngle(qreal x, qreal y);

// The corner of rect that stays fixed while the corner of code is dragged.
QPointF anchorCorner(int code, const QRectF& rect);
// The corner of rect that code names.
QPointF grabbedCorner(int code, const QRectF& rect);
// +1 for the top corners (3, 4), -1 for the bottom ones (1, 2).
int scaleDirection(int code);
// The vector from the anchor to the dragged corner, kept at least MinimumExtent away from
// the anchor on the corner's side in each axis, so the shape neither collapses nor flips.
QPointF clampExtent(int code, const QPointF& d);
// Factor of a proportional scaling of a shape whose bounding rectangle is size, for the
// clamped vector d, the corner's slope and its direction.
qreal proportionalFactor(const QPointF& d, const QSizeF& size, qreal slope, int direction);
// Factor along one axis of a free scaling: the new extent over the old one; an axis of no
// extent (a straight line) keeps its size.
qreal axisFactor(qreal extent, qreal size);

} // namespace handles
