#include <exception>

#include <wx/app.h>
#include <wx/uilocale.h>

#include "host/sample/Boxes.h"
#include "host/sample/BusinessData.h"
#include "host/sample/Component.h"
#include "host/sample/SampleFrame.h"

namespace sample {

class SampleApp : public wxApp {
 public:
  bool OnInit() override {
    wxUILocale::UseDefault();
    SetAppDisplayName(kProgramTitle);
    try {
      (new SampleFrame(ReadBusinessData(ConnectionString())))->Show();
      return true;
    } catch (const ComponentError& error) {
      ShowFailure(nullptr, Describe(error));
    } catch (const std::exception& error) {
      ShowFailure(nullptr, wxString::FromUTF8(error.what()));
    }
    return false;
  }
};

}  // namespace sample

wxIMPLEMENT_APP(sample::SampleApp);
