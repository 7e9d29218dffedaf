// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/instance/InstanceMessage.h"
#include "host/app/instance/InstanceSocket.h"

#include <chrono>
#include <memory>
#include <optional>

namespace fxhost {

//! What a start of the program becomes.
struct InstanceStart
{
    //! The running instance has opened the drawings; this process has nothing left to do.
    bool isHandedOver = false;
    //! At which this instance receives the drawings of later starts; null if another instance does, or none
    //! can.
    std::unique_ptr<InstanceSocket> socket;
};

//! How long a start waits for a running instance to respond.
constexpr std::chrono::milliseconds instanceResponse{1000};

//! Hands a message over to the running instance. If there is none, this start becomes the one that receives.
//! Of several starts at the same time, one does; the others hand their messages over to it.
//!
//! If the running instance responds, but is busy with a command, this function waits for it without a limit:
//! only when the drawings are opened, the process can end without losing any.
//! \param path from instanceSocketPath(); if it is empty, nothing is handed over or received
//! \param message unset to hand nothing over
InstanceStart startInstance(const QByteArray &path, const std::optional<InstanceMessage> &message);

} // namespace fxhost
