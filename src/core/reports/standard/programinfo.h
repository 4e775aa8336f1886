#pragma once
// How the exports name the program that wrote them (CREATED-BY, PROGRAMID, PROGRAMVERSION).
// Keep the version in step with project() in CMakeLists.txt.

namespace hfc {

inline constexpr char kProgramId[] = "hfcontest";
inline constexpr char kProgramVersion[] = "0.1";

} // namespace hfc
