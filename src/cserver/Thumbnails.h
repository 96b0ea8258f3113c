#pragma once

/// @file
/// What shared devices show instead of pictures of their own. Deployments set their addresses when they build.

namespace vantix {

#if !defined(VANTIX_DEFAULT_DEVICE_COVER)
#define VANTIX_DEFAULT_DEVICE_COVER "https://static.vantix.example/covers/device.png"
#endif
#if !defined(VANTIX_DEFAULT_CAMERA_COVER)
#define VANTIX_DEFAULT_CAMERA_COVER "https://static.vantix.example/covers/camera.png"
#endif

inline constexpr const char* kDefaultDeviceCover = VANTIX_DEFAULT_DEVICE_COVER;
inline constexpr const char* kDefaultCameraCover = VANTIX_DEFAULT_CAMERA_COVER;

}  // namespace vantix
