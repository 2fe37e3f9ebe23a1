// The client of the add-on's message server "Zel_Msg.App".
#include "data/CZelMsgClient.h"

#include "data/ZelAutomationProtocol.h"

#include <chrono>
#include <thread>

namespace ZEL {

CZelMsgClient::Connection CZelMsgClient::connect() {
  m_error.clear();
  m_dispatch = dispatchFromProgID(kProgId);
  if (m_dispatch) return Connection::Running;

  const CZelString program = serverFromProgID(kProgId);
  if (program.isEmpty()) {
    m_error = "no message server is installed";
    return Connection::None;
  }
  if (!execute(program, m_policy.executeWaitMs, true)) {
    m_error = program.toUtf8() + ": cannot be started";
    return Connection::None;
  }
  DispatchPtr started;
  for (int i = 0; i < m_policy.tries && !started; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(m_policy.pauseMs));
    started = dispatchFromProgID(kProgId);
  }
  m_dispatch = started;
  if (!m_dispatch) {
    m_error = program.toUtf8() + ": started, but does not serve";
    return Connection::None;
  }
  const CZelString userFile = fileFind(kUserResourceFile);
  if (!userFile.isEmpty()) loadResourceFile(userFile);
  return m_dispatch ? Connection::Started : Connection::None;
}

std::string CZelMsgClient::call(int dispId, const std::vector<std::string>& args) {
  if (!m_dispatch) return {};
  std::optional<std::string> result = m_dispatch->invoke(dispId, args);
  if (result) return *result;
  m_error = m_dispatch->error();
  if (m_dispatch->isBroken()) m_dispatch.reset();
  return {};
}

CZelString CZelMsgClient::selectedKey() { return CZelString::fromUtf8(call(automation::kCallSelectedKey, {})); }

bool CZelMsgClient::loadResourceFile(const CZelString& file) {
  return call(automation::kCallLoadResourceFile, {file.toUtf8()}) == "1";
}

CZelString CZelMsgClient::text(const CZelString& key, const CZelString& country) {
  return CZelString::fromUtf8(call(automation::kCallText, {key.toUtf8(), country.toUtf8()}));
}

}  // namespace ZEL
