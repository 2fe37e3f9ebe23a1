#include "backend/wx/CWxGtk.h"

#include <wx/window.h>

#include <dlfcn.h>

namespace {

template <class F>
F lookup(const char* name) {
  return reinterpret_cast<F>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace

void CWxGtk::addStyleSheet(const std::string& css) {
  auto newProvider = lookup<void* (*)()>("gtk_css_provider_new");
  auto load = lookup<int (*)(void*, const char*, long, void**)>("gtk_css_provider_load_from_data");
  auto screen = lookup<void* (*)()>("gdk_screen_get_default");
  auto add = lookup<void (*)(void*, void*, unsigned)>("gtk_style_context_add_provider_for_screen");
  if (!newProvider || !load || !screen || !add) return;
  void* provider = newProvider();
  if (!provider || !load(provider, css.c_str(), -1, nullptr)) return;
  constexpr unsigned kApplicationPriority = 600;  // GTK_STYLE_PROVIDER_PRIORITY_APPLICATION
  add(screen(), provider, kApplicationPriority);
}

void CWxGtk::ellipsizeLabel(wxWindow& button) {
  auto child = lookup<void* (*)(void*)>("gtk_bin_get_child");
  auto ellipsize = lookup<void (*)(void*, int)>("gtk_label_set_ellipsize");
  auto typeCheck = lookup<int (*)(void*, unsigned long)>("g_type_check_instance_is_a");
  auto labelType = lookup<unsigned long (*)()>("gtk_label_get_type");
  if (!child || !ellipsize || !typeCheck || !labelType) return;
  void* label = child(button.GetHandle());
  constexpr int kEllipsizeEnd = 3;  // PANGO_ELLIPSIZE_END
  if (label && typeCheck(label, labelType())) ellipsize(label, kEllipsizeEnd);
}
