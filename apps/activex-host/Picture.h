#pragma once

#include <windows.h>

#include <string>

namespace activexhost {

/// Writes PNG files of what the screen shows. One lives for as long as the program takes pictures.
class Camera {
 public:
  Camera();
  ~Camera();
  Camera(const Camera&) = delete;
  Camera& operator=(const Camera&) = delete;
  /// `place` in screen pixels; `path` UTF-8. Throws RuntimeError.
  void Save(const RECT& place, const std::string& path) const;

 private:
  ULONG_PTR token_ = 0;
};

}  // namespace activexhost
