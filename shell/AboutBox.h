#pragma once

#include "toolkit/accessible.h"
#include "toolkit/command_button.h"
#include "toolkit/form.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/picture_box.h"
#include "toolkit/text_box.h"
#include "toolkit/timer.h"

/// The about box: the icon, a version tag and credits that scroll up for as long as it is open.
class AboutBox {
  public:
    AboutBox();

    toolkit::PictureBox Picture1; ///< the viewport of the credits
    toolkit::TextBox Text1;       ///< inside it; its `Top` is the scroll position
    toolkit::Timer Timer1;
    toolkit::CommandButton cmdBack;
    toolkit::Image Image1;
    toolkit::Label Label12;

    // Declared behind its controls: it is taken down before them.
    toolkit::Form window;

  private:
    void layOut();
    toolkit::AccessibleTable accessibleTable();
    void Form_Load();
    void Timer1_Timer();
    void cmdBack_Click();
};
