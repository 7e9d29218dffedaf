// SPDX-License-Identifier: MIT
#pragma once

class QImage;
class QPixmap;
class QSize;

//! The tiles' pictures, kept from one popup to the next, because converting and scaling them takes longer
//! than painting them. Those that have not been used for longest are dropped first. GUI thread.
namespace TilePictures {

//! The most that is kept, in bytes. A scaled picture takes 48,000 on a screen with a pixel ratio of 1.
constexpr int mostBytes = 64 * 1024 * 1024;

//! The picture as a pixmap. Null for a null picture.
QPixmap whole(const QImage &picture);
//! The picture stretched to a size in device pixels. \param picture not null
QPixmap scaled(const QPixmap &picture, const QSize &size);
//! Deletes them all. They should not outlive the application.
void drop();

} // namespace TilePictures
