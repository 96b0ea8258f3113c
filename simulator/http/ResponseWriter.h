#pragma once

#include "Message.h"
#include "RequestDelays.h"

#include <microhttpd.h>

namespace vantix::simulator {

/// Sends the response on the connection, in the way that its `delivery` names. MHD_NO ends the connection.
MHD_Result WriteResponse(MHD_Connection* connection, Response response, RequestDelays& delays);

}  // namespace vantix::simulator
