#include "backend/wx/CWxBackend.h"

#include "backend/wx/CWxDialogUnits.h"
#include "backend/wx/CWxDialogWindow.h"
#include "backend/wx/CWxGtk.h"
#include "backend/wx/CWxPreviewPainter.h"
#include "ui/CDialog.h"
#include "ui/CMenu.h"

#include <wx/app.h>
#include <wx/bitmap.h>
#include <wx/clipbrd.h>
#include <wx/dcmemory.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/menu.h>
#include <wx/utils.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

namespace {

// GTK's default theme pads buttons, entries and combo boxes for touch screens; dialogs laid
// out in dialog units need the compact sizes of a desktop dialog.
const char kCompactStyle[] =
    "button, entry, combobox button, spinbutton { min-height: 0; padding-top: 0; padding-bottom: 0; }"
    "button { padding-left: 4px; padding-right: 4px; }"
    "entry { padding-left: 3px; padding-right: 3px; }"
    "combobox button { padding-left: 4px; padding-right: 2px; }"
    "checkbutton, radiobutton { padding: 0; min-height: 0; }"
    "notebook tab { padding: 2px 6px; min-height: 0; }"
    "treeview, list { padding: 0; }";

bool hasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"})
    if (const char* v = std::getenv(name); v && *v) return true;
  return false;
}

// Menu commands of the model may be any number; wx keeps some for itself, so each item gets
// an identifier of ours and the model's command is found again through it.
void buildMenu(wxMenu& out, const CMenu& menu, std::map<int, UINT>& commands) {
  for (const CMenu::Item& item : menu.items()) {
    if (item.flags & MF_SEPARATOR) {
      out.AppendSeparator();
      continue;
    }
    wxString text(item.text.str());
    if (item.popup) {
      auto* sub = new wxMenu;
      buildMenu(*sub, *item.popup, commands);
      out.AppendSubMenu(sub, text);
      continue;
    }
    int id = wxID_HIGHEST + 1 + static_cast<int>(commands.size());
    commands[id] = item.id;
    wxMenuItem* added = (item.flags & MF_CHECKED) ? out.AppendCheckItem(id, text) : out.Append(id, text);
    if (item.flags & MF_CHECKED) added->Check(true);
    if (item.flags & (MF_GRAYED | MF_DISABLED)) added->Enable(false);
  }
}

}  // namespace

CWxBackend::CWxBackend(std::ostream& out, std::ostream& err, bool trace) : m_out(out), m_err(err), m_trace(trace) {}

CWxBackend::~CWxBackend() = default;

bool CWxBackend::start() {
  static int started = -1;
  if (started >= 0) return started == 1;
  started = 0;
  if (!hasDisplay()) return false;
  static int argc = 1;
  static char name[] = "qen-host";
  static char* argv[] = {name, nullptr};
  wxApp::SetInstance(new wxApp);
  if (!wxEntryStart(argc, argv)) return false;
  if (!wxTheApp || !wxTheApp->CallOnInit()) return false;
  // wx would show its own log messages and failed checks in message boxes, which nobody
  // may be there to close; they go to the error stream.
  delete wxLog::SetActiveTarget(new wxLogStderr);
  wxSetAssertHandler([](const wxString& file, int line, const wxString& func, const wxString& cond, const wxString& msg) {
    std::fprintf(stderr, "wx: %s:%d %s: %s %s\n", file.utf8_str().data(), line, func.utf8_str().data(),
                 cond.utf8_str().data(), msg.utf8_str().data());
  });
  wxTheApp->SetExitOnFrameDelete(false);
  // The standard dialog font becomes every widget's default (see CWxDialogWindow).
  wxFont font = CWxDialogUnits::standardFont();
  std::string css = kCompactStyle;
  css += "* { font-family: \"" + font.GetFaceName().ToStdString() + "\"; font-size: " +
         std::to_string(font.GetPointSize()) + "pt; }";
  CWxGtk::addStyleSheet(css);
  started = 1;
  return true;
}

void CWxBackend::dialogOpening(CDialog& dialog) { m_openings[&dialog] = std::chrono::steady_clock::now(); }

void CWxBackend::dialogClosed(CDialog& dialog) { m_openings.erase(&dialog); }

void CWxBackend::dialogFailed(CDialog& dialog, const std::string& message) {
  m_err << "dialog " << dialog.templateId() << " could not be shown: " << message << "\n";
}

void CWxBackend::runModal(CDialog& dialog) {
  auto known = m_openings.find(&dialog);
  auto opened = known == m_openings.end() ? std::chrono::steady_clock::now() : known->second;
  auto* window = new CWxDialogWindow(*this, dialog, topWindow());
  window->setOpeningStart(opened);
  window->onFirstPaint = [this](CWxDialogWindow& w, double ms) {
    if (m_trace)
      m_out << "trace: window " << w.dialog().templateId() << " shown: " << w.GetClientSize().x << "x"
            << w.GetClientSize().y << " pixels, dialog base units " << w.units().baseX() << "x" << w.units().baseY()
            << ", first paint after " << ms << " ms" << std::endl;
    if (onShown) onShown(w, ms);
  };
  m_stack.push_back(window);
  window->sync();
  window->CentreOnParent();
  if (!dialog.isEnded()) window->ShowModal();
  m_stack.pop_back();
  window->close();
  window->Destroy();
}

void CWxBackend::userAction(const std::function<std::string()>& action) {
  ++m_depth;
  std::string refused = action();
  if (!refused.empty() && m_trace) m_out << "trace: refused: " << refused << "\n";
  afterEvent();
  --m_depth;
  if (m_depth == 0)
    for (CWxDialogWindow* w : m_stack) w->buryDetached();
}

void CWxBackend::afterEvent() {
  CWnd::pumpPostedMessages();
  for (CWxDialogWindow* w : m_stack) w->sync();
  // Only the innermost loop can end; the dialogs below see theirs end when it has returned.
  if (CWxDialogWindow* top = topWindow(); top && top->dialog().isEnded() && top->IsModal())
    top->EndModal(static_cast<int>(top->dialog().result()));
}

UINT CWxBackend::trackPopupMenu(const CMenu& menu, CWnd*, CPoint screenPoint) {
  CWxDialogWindow* top = topWindow();
  if (!top) return 0;
  wxMenu popup;
  std::map<int, UINT> commands;
  buildMenu(popup, menu, commands);
  // The model's screen is the topmost dialog's client area, in the model's pixels.
  int chosen = top->GetPopupMenuSelectionFromUser(popup, top->units().fromModelPixels(screenPoint));
  auto it = commands.find(chosen);
  UINT command = it == commands.end() ? 0 : it->second;
  if (m_trace) m_out << "trace: context menu chose " << command << "\n";
  return command;
}

std::string CWxBackend::helpUrl(const CZelString& file, const CZelString& topic) {
  std::string f = file.toUtf8(), t = topic.toUtf8();
  std::error_code ec;
  if (!f.empty() && std::filesystem::is_directory(f, ec)) return (std::filesystem::path(f) / (t + ".html")).string();
  if (t.empty()) return f;
  return f + "#" + t;
}

void CWxBackend::showHelp(const CZelString& file, const CZelString& topic) {
  if (file.isEmpty()) {
    m_err << "help: no help file for \"" << topic.toUtf8() << "\"\n";
    return;
  }
  std::string url = helpUrl(file, topic);
  if (m_trace) m_out << "trace: help " << url << "\n";
  const char* argv[] = {m_helpViewer.c_str(), url.c_str(), nullptr};
  if (wxExecute(argv, wxEXEC_ASYNC) <= 0) m_err << "help: " << m_helpViewer << " could not be started for " << url << "\n";
}

bool CWxBackend::copyToClipboard(const CDisplayList& picture, int width, int height) {
  recordClipboardCopy(picture, width, height);
  if (width <= 0 || height <= 0) return false;
  wxBitmap bitmap(width, height);
  {
    wxMemoryDC dc(bitmap);
    CWxPreviewPainter(picture, wxRect(0, 0, width, height)).paint(dc);
  }
  if (!wxTheClipboard->Open()) {
    m_err << "clipboard: cannot be opened\n";
    return false;
  }
  const bool done = wxTheClipboard->SetData(new wxBitmapDataObject(bitmap));
  wxTheClipboard->Flush();
  wxTheClipboard->Close();
  if (m_trace) m_out << "trace: clipboard " << width << " x " << height << "\n";
  return done;
}
