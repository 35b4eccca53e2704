#include <exception>

#include <wx/app.h>
#include <wx/msgdlg.h>
#include <wx/uilocale.h>

#include "host/sample/Component.h"
#include "host/sample/SampleFrame.h"

namespace sample {
namespace {

class SampleApp : public wxApp {
 public:
  bool OnInit() override {
    wxUILocale::UseDefault();
    SetAppDisplayName("Customers and Orders");
    try {
      (new SampleFrame(ReadBusinessData(ConnectionString())))->Show();
      return true;
    } catch (const ComponentError& error) {
      Refuse(error.description);
    } catch (const std::exception& error) {
      Refuse(wxString::FromUTF8(error.what()));
    }
    return false;
  }

 private:
  static void Refuse(const wxString& why) { wxMessageBox(why, "Customers and Orders", wxOK | wxICON_ERROR); }
};

}  // namespace
}  // namespace sample

wxIMPLEMENT_APP(sample::SampleApp);
