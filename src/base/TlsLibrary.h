#pragma once

namespace vantix {

/// Keeps libcurl's TLS library from tidying up when the process ends: a transfer of a background task may still use
/// it then. To be called before the first transfer; without effect when the host has used that library before.
void KeepTlsLibraryToTheEnd();

}  // namespace vantix
