// The checks of the JScript host; see Checks.vbs.

var checkCount = 0, failureCount = 0;

function report(what, isRight, actual, expected) {
  checkCount += 1;
  if (isRight) {
    WScript.Echo("ok      " + what);
  } else {
    failureCount += 1;
    WScript.Echo("FAILED  " + what + ": expected <" + expected + ">, got <" + actual + ">");
  }
}

// Compares without conversion; objects must be the same one.
function equal(what, actual, expected) {
  report(what, actual === expected, typeof actual + " " + actual, typeof expected + " " + expected);
}

// Expects an error with one of these numbers, which an error object holds as signed ones, and with the text if given.
function fails(what, call, numbers, description) {
  var thrown = null;
  try {
    call();
  } catch (error) {
    thrown = error;
  }
  var isRight = false;
  for (var i = 0; thrown !== null && i < numbers.length; ++i) {
    if (thrown.number === (numbers[i] | 0)) isRight = description === undefined || thrown.description === description;
  }
  report(what, isRight, thrown === null ? "no error" : thrown.number + " " + thrown.description,
       numbers.join(" or ") + " " + (description === undefined ? "" : description));
}

function finish(expectedCount) {
  equal("number of checks", checkCount, expectedCount);
  WScript.Echo(checkCount + " checks, " + failureCount + " failed");
  WScript.Quit(failureCount > 0 ? 1 : 0);
}
