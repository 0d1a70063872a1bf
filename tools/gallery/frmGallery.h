#pragma once

#include "platform/forms/Controls.h"
#include "ui_frmGallery.h"

// Every control of this folder on one form, each event written to a list.
class frmGallery : public forms::FormOf<Ui::frmGallery> {
  public:
    bool WritePicture(const std::string& path);

  private:
    void Wire() override;
    void Form_Load() override;
    void Form_Activate() override { Log("Form_Activate"); }
    void Form_KeyDown(int keyCode, int shift) override;

    void WireFocus(forms::Control& control);
    void Log(const std::string& what);
    void cmdMessage_Click();
    void cmdWait_Click();
};
