/// \file
/// The mesher's library: its life, and its errors.

#pragma once

#include <functional>
#include <stdexcept>

namespace vrn::orlo::host::meshing {

/// A body that cannot be meshed. what() is one line.
class MesherError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Runs calls into the mesher. What it throws, a plain string mostly, and errors in its log become
/// a MesherError, so do exceptions of the geometry kernel.
void onGmsh(std::function<void()> const& run);

/// The one owner of the mesher's state: a fresh one, silent, without the user's settings, and set
/// to give the same mesh each time.
///
/// Failure    std::logic_error while another session is open.
/// Threads    Main thread.
/// Cost       About a millisecond. An error may leave the mesher's state broken, so each body has
///            a session of its own.
class GmshSession {
public:
    GmshSession();
    GmshSession(GmshSession const&) = delete;
    GmshSession& operator=(GmshSession const&) = delete;
    ~GmshSession();
};

}  // namespace vrn::orlo::host::meshing
