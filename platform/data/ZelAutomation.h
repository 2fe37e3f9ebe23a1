// Finding, starting and reaching the add-on's local automation servers by programmatic
// identifier, in place of the system's object registry.
#pragma once

#include "data/CZelDispatch.h"
#include "data/CZelString.h"

#include <memory>

namespace ZEL {

using DispatchPtr = std::shared_ptr<CZelDispatch>;

// The interface of the server of `progId` that is running now for this user, or none.
DispatchPtr dispatchFromProgID(const CZelString& progId);

// The program registered for `progId`, or empty when none is installed. A server is
// registered by an environment variable that names its program (for "Zel_Msg.App":
// QEN_MSGSERVER; set but empty means "not installed"), else by its program lying beside
// the running executable (for "Zel_Msg.App": qen-msgserver). Only an executable regular
// file counts.
CZelString serverFromProgID(const CZelString& progId);

// Starts `program` (a path; no arguments, no shell).
// detached true: the program runs on in its own session, apart from the caller, with its
//   standard streams on /dev/null. The call waits at most `waitMs` for the program to say
//   it is ready (a server writes to the descriptor named by QEN_READY_FD once it listens)
//   or to end. True when the program could be started.
// detached false: the call waits at most `waitMs` for the program to end; one that runs
//   longer is killed. True when it ended with status 0.
bool execute(const CZelString& program, int waitMs, bool detached);

// The environment variable through which execute() hands a started program the
// descriptor on which to report that it is ready.
inline constexpr const char* kReadyFdVariable = "QEN_READY_FD";

// A file of the add-on searched by name: an absolute or relative path that exists is taken
// as it is; else the add-on's data folder, then ${XDG_CONFIG_HOME:-~/.config}/qen. Empty
// when it is found nowhere.
CZelString fileFind(const CZelString& name);

}  // namespace ZEL
