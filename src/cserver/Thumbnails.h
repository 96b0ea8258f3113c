#pragma once

/// @file
/// Pictures that stand for shared devices, which have none. Deployments set the addresses when they configure the
/// build, as VANTIX_DEVICE_COVER and VANTIX_CAMERA_COVER.

namespace vantix {

/// Address of the picture of a device; UTF-8.
extern const char* const kDefaultDeviceCover;
/// Address of the picture of a camera; UTF-8.
extern const char* const kDefaultCameraCover;

}  // namespace vantix
