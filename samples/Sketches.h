// SPDX-License-Identifier: MIT
#pragma once

class QPainter;
class QRectF;

namespace fxsamples {

// The drawings. Each covers the whole area, background included, at any size and shape, and leaves the
// painter as it was.

// BuildingSketches.cpp
void floorPlan(QPainter &painter, const QRectF &area);
void streetElevation(QPainter &painter, const QRectF &area);

// StructureSketches.cpp
void staircaseSection(QPainter &painter, const QRectF &area);
void roofTruss(QPainter &painter, const QRectF &area);
void archBridge(QPainter &painter, const QRectF &area);

// MachineSketches.cpp
void spurGear(QPainter &painter, const QRectF &area);
void bracket(QPainter &painter, const QRectF &area);

// TurnedPartSketches.cpp
void flange(QPainter &painter, const QRectF &area);
void ballBearing(QPainter &painter, const QRectF &area);

// SiteSketches.cpp
void sitePlan(QPainter &painter, const QRectF &area);

// DiagramSketches.cpp
void pipeRun(QPainter &painter, const QRectF &area);
void powerSupply(QPainter &painter, const QRectF &area);

} // namespace fxsamples
