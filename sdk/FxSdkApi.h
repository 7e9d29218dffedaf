// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>

// What a host and its modules must have in common, because they exchange objects of Qt and of the standard
// library, and test for each other's classes.
#if QT_VERSION_MAJOR != 5 || QT_VERSION_MINOR != 15
#error "a host and its modules must be built with Qt 5.15"
#endif
#ifdef QT_NAMESPACE
#error "a host and its modules must be built with a Qt that has no namespace: QT_NAMESPACE is defined"
#endif
#if !defined(__GLIBCXX__) || !_GLIBCXX_USE_CXX11_ABI
#error "a host and its modules must be built with libstdc++ and its current strings: _GLIBCXX_USE_CXX11_ABI=1"
#endif
#ifndef __GXX_RTTI
#error "a host and its modules must be built with run-time type information: without -fno-rtti"
#endif

//! Marks symbols that a host defines for its modules, and the entry points of modules. Interfaces are marked
//! too: their destructors are defined in the host, so that host and module share one vtable and one type
//! information for each class.
#define FXSDK_API __attribute__((visibility("default")))
