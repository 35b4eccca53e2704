// A host in JScript, for the differences to VBScript: the language has null and undefined but no Nothing, assigns objects
// without Set, loops with an Enumerator, throws errors and converts dates to its own Date.

// Errors of the call itself. Other engines replace their numbers; Wine's does not.
var kTypeMismatch = [0x800A000D, 0x80020005];
var kNoSuchMember = [0x800A01B6, 0x80020003, 0x80020006];

var every = "\u00c4\u00df \u20ac5 \u65e5\u672c \ud83d\ude00 \u0000 end";

var context = new ActiveXObject("Quorvel.RemarkContext");
equal("no object is null", context.RemarkList, null);
context.Load("CustMaint", "C1043", "admin");

equal("a text", context.Caption, "Customer Maintenance");
equal("a number", context.OwnerKey, 44);
equal("a flag", context.GroupByType, true);
equal("an owner's letters", context.OwnerName, "S\u00f8ndergaard M\u00f8bler");
equal("the default member by text", context("cust.general").Caption, "General");
equal("the default member by number", context(1).TypeID, "Cust.AR.Coll");
equal("Item", context.Item(2).TypeID, "Cust.Credit");
equal("no type of that text", context.Item("Ord.Ship"), null);
equal("no type for null", context.Item(null), null);
equal("no type for undefined", context.Item(undefined), null);
equal("a property with an argument", context.RemarkList(1).TypeID, "Cust.General");

var ids = "";
for (var types = new Enumerator(context); !types.atEnd(); types.moveNext()) ids += types.item().TypeID + " ";
equal("types in their order", ids, "Cust.AR.Coll Cust.Credit Cust.General Cust.Internal ");
var texts = [];
var remarks = new Enumerator(context.RemarkList);
for (; !remarks.atEnd(); remarks.moveNext()) texts.push(remarks.item().MemoText);
equal("remarks", texts.length, context.MemoCount);
remarks.moveFirst();
equal("from the first again", remarks.item().MemoText, texts[0]);
equal("a text from the database", texts[0].indexOf("Pays in \u20ac, net 30.") > 0, true);

// Objects are assigned like values.
var list = context.RemarkList;
var remark = list.Add();
remark.RemarkType = context("Cust.Internal");
equal("an object without Set", remark.TypeID, "Cust.Internal");
remark.RemarkType = null;
equal("no object without Set", remark.RemarkType, null);
remark.RemarkType = context("Cust.General");
remark.MemoText = every;
equal("every character", remark.MemoText, every);
equal("and their number", remark.MemoText.length, every.length);
remark.Dirty = true;
equal("position of the object", list.Index(remark), list.Count);
context.EditBehavior = 1;
equal("EditBehavior", context.EditBehavior, 1);
remark.DateStamp = "2024-02-29 23:59:58";
equal("a date", new Date(remark.DateStamp).getTime(), new Date(2024, 1, 29, 23, 59, 58).getTime());
context.Save(true);
context.RefreshRemarkList();
var stored = false;
for (remarks = new Enumerator(context.RemarkList); !remarks.atEnd(); remarks.moveNext()) {
  if (remarks.item().MemoText === every) stored = true;
}
equal("stored and read again", stored, true);

fails("an unknown context", function () { context.Load("Nowhere"); }, [-1], "ContextID [Nowhere] not found");
fails("a type of another context", function () { context.AddRemark("Ord.Ship", "text"); }, [-1],
      "Illegal remark type for this context");
fails("after the last", function () { list.Remove(99); }, [0x800A0009], "Subscript out of range");
fails("adding null", function () { list.AddRemark(null); }, [0x800A005B], "Object variable or With block variable not set");
fails("adding another class", function () { list.AddRemark(context); }, kTypeMismatch);
fails("adding an object of the script", function () { list.AddRemark({ MemoText: "x" }); }, kTypeMismatch);
fails("adding undefined", function () { list.AddRemark(undefined); }, kTypeMismatch);
fails("null for a text", function () { context.Load(null); }, kTypeMismatch);
fails("writing a read-only property", function () { context.Caption = "x"; }, kNoSuchMember);
fails("an unknown member", function () { context.Nonsense(); }, kNoSuchMember);
fails("a class that hosts cannot create", function () { return new ActiveXObject("Quorvel.RemarkList"); }, [0x800A01AD]);
context.Dispose();
fails("after Dispose", function () { context.OwnerKey = 5; }, [0x800A005B]);

// The command line reads this remark back.
context.Load("CustMaint", "C1043", "admin");
context.AddRemark("Cust.General", WScript.Arguments(0), "admin");
context.Save(true);
context.Dispose();

finish(36);
