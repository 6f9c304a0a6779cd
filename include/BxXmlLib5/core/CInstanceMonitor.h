// The empty base of the library's node, writer and collection classes.
#pragma once

/// An empty base class. Classes hand it their name, which it ignores.
class CInstanceMonitor {
public:
    /// The name is not looked at.
    explicit CInstanceMonitor(char16_t const* /*className*/) {}
    /// @{
    /// Does nothing.
    CInstanceMonitor(CInstanceMonitor const&) = default;
    CInstanceMonitor& operator=(CInstanceMonitor const&) { return *this; }
    /// @}
};
