#pragma once

#include "Message.h"
#include "Pause.h"

#include <microhttpd.h>

namespace vantix::simulator {

/// Sends the answer, or the fault that it asks for, on the connection. MHD_NO ends the connection.
MHD_Result Deliver(MHD_Connection* connection, Answer answer, Pause& pause);

}  // namespace vantix::simulator
