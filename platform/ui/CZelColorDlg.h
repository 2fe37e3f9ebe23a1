// The host's colour dialog: an index colour, typed as its number or picked from the standard
// colours, or a true colour of red, green and blue; OK gives the colour chosen.
#pragma once

#include "data/CZelColor.h"
#include "ui/CZelDlg.h"

class CZelColorDlg : public CZelDlg {
public:
  CZelColorDlg(const CZelColor& color, CWnd* parent = nullptr, ZelColorChoice choice = ZelColorChoice::Plain);

  const CZelColor& color() const { return m_color; }

  BOOL OnInitDialog() override;
  void OnOK() override;
  bool updLang() override;
  void addLangRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];
  void command(const CZelString& word);
  void refresh();
  // The index edit and the RGB edits read into the choice; false when a value is not a
  // number of its range, and the user is told so only when OK is asked for.
  enum class Complaint { Silent, Tell };
  bool readIndex(Complaint complaint);
  bool readRgb(Complaint complaint);

  CZelColor m_color;
  ZelColorChoice m_choice;
  bool m_trueColor = false;
  int m_index = 7;
  int m_rgb[3] = {255, 255, 255};
  bool m_refreshing = false;
};
