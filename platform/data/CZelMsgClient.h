// The client of the add-on's message server "Zel_Msg.App": finds or starts the server and
// asks it for the selected text key and for texts of a key by language.
#pragma once

#include "data/CZelString.h"
#include "data/ZelAutomation.h"

namespace ZEL {

class CZelMsgClient {
public:
  static constexpr const wchar_t* kProgId = L"Zel_Msg.App";
  static constexpr const wchar_t* kUserResourceFile = L"qen_user.rsx";

  // How connect() came to its interface.
  enum class Connection { None, Running, Started };

  // How long connect() gives a server it started to come up: `tries` looks, `pauseMs`
  // apart (20 × 500 ms, at most ten seconds, for a dialog).
  struct StartPolicy {
    int tries = 20;
    int pauseMs = 500;
    int executeWaitMs = 500;
  };

  CZelMsgClient() = default;
  explicit CZelMsgClient(StartPolicy policy) : m_policy(policy) {}

  // Attaches the running server; else starts the registered program and looks for it
  // again until it answers or the tries are used up. Only a server started here gets the
  // user's resource file (qen_user.rsx, found by ZEL::fileFind) loaded, so that a server
  // the user set up is not changed behind the user's back. No program registered: none,
  // at once.
  Connection connect();
  bool isAttached() const { return m_dispatch != nullptr; }
  void detach() { m_dispatch.reset(); }

  // The calls. A client without an interface does nothing and returns an empty result;
  // a call that fails (server error, no answer within CZelDispatch::kCallTimeoutMs)
  // returns an empty result too, and a lost answer detaches the client so that the
  // following calls do not wait again.
  CZelString selectedKey();                                          // call 1
  bool loadResourceFile(const CZelString& file);                     // call 2
  CZelString text(const CZelString& key, const CZelString& country);  // call 4

  // Why the last call or connect gave nothing (for logs and tests).
  const std::string& error() const { return m_error; }

private:
  std::string call(int dispId, const std::vector<std::string>& args);

  StartPolicy m_policy;
  DispatchPtr m_dispatch;
  std::string m_error;
};

}  // namespace ZEL
