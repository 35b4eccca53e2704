// Each view has one function, which makes its tabs from left to right. Within a tab, controls are made in the order in
// which the Tab key passes them. Access keys are unique among what a view shows at a time; I, N and D belong to the
// controls above the tabs.

#include "admin/window/Panels.h"

#include <string>
#include <vector>

#include <wx/listbox.h>
#include <wx/panel.h>

#include "admin/window/BoundControls.h"
#include "admin/window/FieldSheet.h"
#include "admin/window/GridPanel.h"
#include "admin/window/ListPairPanel.h"
#include "admin/window/TabPanels.h"

namespace quorvel {
namespace {

// As long as their columns.
constexpr std::size_t kNameLength = 60;
constexpr std::size_t kCaptionLength = 100;
constexpr std::size_t kCommentLength = 500;
constexpr std::size_t kProcedureLength = 128;
constexpr std::size_t kNumberLength = 11;
constexpr int kTallestRow = 32767;

std::string Member(const char* name, std::size_t index) { return std::string(name) + std::to_string(index); }

/// The tabs of one view, as they are made.
class ViewTabs {
 public:
  ViewTabs(TabPanels& tabs, BoundControls& controls, std::string_view view)
      : m_tabs(tabs), m_controls(controls), m_view(view) {}

  wxPanel& Tab(std::string_view caption, std::string_view tip = {}) { return m_tabs.AddTab(m_view, caption, tip); }

  void Type(BoundText& text, wxTextCtrl& box, std::string_view field, std::size_t maxLength) {
    text.Attach(box, maxLength);
    m_controls.typed.push_back({m_view, field, &text});
  }

  /// The caption and the comment of a record, with that member of both arrays.
  void CaptionAndComment(FieldSheet& sheet, std::size_t member) {
    Type(m_controls.txtCaption.at(member), sheet.AddLine(Member("txtCaption", member), "C&aption"), "Caption",
         kCaptionLength);
    Type(m_controls.txtComment.at(member), sheet.AddMemo(Member("txtComment", member), "C&omments"), "Comment",
         kCommentLength);
  }

  ListPairPanel Pair(std::size_t member, std::string_view caption, std::string_view tip,
                     const ListPairPanel::Captions& words, BoundList::Order order = BoundList::Order::Alphabetical) {
    ListPairPanel pair(Tab(caption, tip), std::to_string(member), words);
    m_controls.lstRemaining.at(member).Attach(*pair.lstRemaining, BoundList::Order::Alphabetical);
    m_controls.lstCurrent.at(member).Attach(*pair.lstCurrent, order);
    m_controls.cmdAdd.at(member).Attach(*pair.cmdAdd, *pair.lstCurrent);
    m_controls.cmdRemove.at(member).Attach(*pair.cmdRemove, *pair.lstRemaining);
    return pair;
  }

  /// A list pair with check boxes for the rights of the selected link.
  void PairWithRights(std::size_t member, std::string_view caption, std::string_view tip,
                      const ListPairPanel::Captions& words, std::string_view frame, std::size_t firstRight) {
    ListPairPanel pair = Pair(member, caption, tip, words);
    pair.AddFrame(frame);
    for (const char* right : {"&Create", "Updat&e", "&Read", "De&lete"}) {
      m_controls.chkRight.at(firstRight).Attach(pair.AddCheck(Member("chkRight", firstRight), right), pair.lstCurrent);
      ++firstRight;
    }
  }

  void Grid(std::size_t member, std::string_view caption, std::string_view tip, std::string_view label,
            std::vector<GridColumn> columns) {
    MakeGridPanel(Tab(caption, tip), Member("grdForm", member), label, std::move(columns),
                  m_controls.grdForm.at(member));
  }

 private:
  TabPanels& m_tabs;
  BoundControls& m_controls;
  std::string_view m_view;
};

void MakeUsers(TabPanels& tabs, BoundControls& controls) {
  ViewTabs users(tabs, controls, "Users");
  FieldSheet general(users.Tab("&General"));
  users.Type(controls.txtFirstName, general.AddLine("txtFirstName", "&First name"), "FirstName", kNameLength);
  users.Type(controls.txtLastName, general.AddLine("txtLastName", "&Last name"), "LastName", kNameLength);
  controls.cboBranch.Attach(general.AddCombo("cboBranch", "&Branch"));
  controls.chkUserActive.Attach(general.AddCheck("chkUserActive", "A&ctive"));
  users.Pair(0, "Grou&ps", {}, {"&Other groups", "Groups of &the user"});
  users.Grid(
      0, "Rig&hts", "Rights assignments for each user", "Righ&ts of the user through groups",
      {{"RightID", "Right", 160}, {"Caption", "Caption", 280}, {"UserKey", "Has it", 60, true, CellFormat::Flag}});
  users.Grid(1, "Remar&ks", {}, "Remark righ&ts of the user through groups",
             {{"RemarkTypeID", "Remark type", 130},
              {"EntityCaption", "Entity", 90},
              {"Caption", "Caption", 130},
              {"CanCreate", "Create", 50, true, CellFormat::Flag},
              {"CanRead", "Read", 50, true, CellFormat::Flag},
              {"CanUpdate", "Update", 50, true, CellFormat::Flag},
              {"CanDelete", "Delete", 50, true, CellFormat::Flag}});
}

void MakeGroups(TabPanels& tabs, BoundControls& controls) {
  ViewTabs groups(tabs, controls, "Groups");
  FieldSheet general(groups.Tab("&General"));
  groups.CaptionAndComment(general, 0);
  groups.Pair(1, "&Users", "Users associated with each group", {"&Other users", "Users in &the group"});
  groups.Pair(2, "Rig&hts", "Rights associated with each group", {"&Other rights", "Rights of &the group"});
  groups.PairWithRights(3, "Remar&ks", {}, {"&Other remark types", "Remark types of &the group"},
                        "Rights of the group on the selected remark type", 0);
}

void MakeRights(TabPanels& tabs, BoundControls& controls) {
  ViewTabs rights(tabs, controls, "Rights");
  FieldSheet general(rights.Tab("&General"));
  rights.CaptionAndComment(general, 1);
  rights.Pair(4, "Grou&ps", "Groups associated with each right", {"&Other groups", "Groups with &the right"});
  rights.Grid(2, "&Users", "Users associated with each right", "Users who have &the right through a group",
              {{"UserID", "User", 130},
               {"LastName", "Last name", 140},
               {"FirstName", "First name", 140},
               {"BranchID", "Branch", 90}});
}

void MakeRemarks(TabPanels& tabs, BoundControls& controls) {
  ViewTabs remarks(tabs, controls, "Remarks");
  FieldSheet general(remarks.Tab("&General"));
  controls.txtCaption[8].Attach(general.AddShownLine("txtCaption8", "Enti&ty"), 0);
  remarks.CaptionAndComment(general, 2);
  remarks.PairWithRights(5, "Grou&ps", "Groups associated with each remark type",
                         {"&Other groups", "Groups with righ&ts"}, "Rights of the selected group on the remark type",
                         4);
  ListPairPanel contexts = remarks.Pair(6, "Conte&xts", "Contexts associated with each remark type",
                                        {"&Other contexts", "Contexts of &the type"});
  contexts.AddFrame("Remark type in the selected context");
  controls.chkRight[8].Attach(contexts.AddCheck("chkRight8", "P&riority: remarks of this type pop up"),
                              contexts.lstCurrent);
}

void MakeContexts(TabPanels& tabs, BoundControls& controls) {
  ViewTabs contexts(tabs, controls, "Contexts");
  FieldSheet general(contexts.Tab("&General"));
  controls.txtCaption[7].Attach(general.AddShownLine("txtCaption7", "Enti&ty"), 0);
  contexts.CaptionAndComment(general, 3);
  controls.cboEditBehavior.Attach(general.AddCombo("cboEditBehavior", "Edit beha&vior"));
  controls.udRowHeight.Attach(general.AddNumber("udRowHeight", "Ro&w height", kTallestRow));
  controls.chkAllowRowSizing.Attach(general.AddCheck("chkAllowRowSizing", "Allow row &sizing"));
  controls.chkGroupByType.Attach(general.AddCheck("chkGroupByType", "Group &by type"));

  ListPairPanel types = contexts.Pair(7, "Remar&ks", {}, {"&Other types of the entity", "Remark types of &the context"},
                                      BoundList::Order::AsFilled);
  types.AddFrame("Selected remark type in the context");
  controls.chkRight[9].Attach(types.AddCheck("chkRight9", "P&riority: its remarks pop up"), types.lstCurrent);
  controls.cmdUp.Attach(types.AddButton("cmdUp", "&Move up"), *types.lstCurrent);
  controls.cmdDown.Attach(types.AddButton("cmdDown", "Move do&wn"), *types.lstCurrent);
}

void MakeEntities(TabPanels& tabs, BoundControls& controls) {
  ViewTabs entities(tabs, controls, "Entities");
  FieldSheet general(entities.Tab("&General"));
  entities.CaptionAndComment(general, 4);
  entities.Type(controls.txtProcedure, general.AddLine("txtProcedure", "P&rocedure"), "Procedure", kProcedureLength);
  entities.Type(controls.txtEntity, general.AddLine("txtEntity", "EntityKe&y"), "EntityKey", kNumberLength);
  entities.Grid(3, "Conte&xts", {}, "Contex&ts of the entity",
                {{"ContextID", "Context", 160}, {"Caption", "Caption", 340}});
  entities.Grid(4, "Remar&ks", {}, "Remark &types of the entity",
                {{"RemarkTypeID", "Remark type", 160}, {"Caption", "Caption", 340}});
}

}  // namespace

void MakePanels(TabPanels& tabs, BoundControls& controls) {
  MakeUsers(tabs, controls);
  MakeGroups(tabs, controls);
  MakeRights(tabs, controls);
  MakeRemarks(tabs, controls);
  MakeContexts(tabs, controls);
  MakeEntities(tabs, controls);
}

}  // namespace quorvel
