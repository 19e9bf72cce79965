#pragma once

namespace toolkit {

/// The property of a control that lists the keys which press it.
inline constexpr char keysProperty[] = "keys";

/// Has screen readers know the forms and their controls by role, name, state and what can be done with them;
/// once for all, further calls do nothing.
void describeToReaders();

} // namespace toolkit
