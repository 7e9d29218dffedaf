# SPDX-License-Identifier: MIT
# find_package(FxSdk) defines Fx::Sdk, for modules, and Fx::SdkHost, for hosts.
include(CMakeFindDependencyMacro)
find_dependency(Qt5 5.15 COMPONENTS Core Gui Widgets)
include(${CMAKE_CURRENT_LIST_DIR}/FxSdkTargets.cmake)
