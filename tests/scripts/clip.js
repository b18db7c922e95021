// Clip strings and FormatString from JScript.
var failures = 0;
function check(what, actual, expected) {
    if (actual !== expected) {
        WScript.Echo("FAIL " + what + ": " + actual + " instead of " + expected);
        ++failures;
    }
}
function text(row, col) { return grid.TextMatrix(row, col); }

var grid = new ActiveXObject("LorvGrid8.LorvGridL");
grid.FormatString = "<Name|>Amount|^Date;|first|second";
check("Cols", grid.Cols, 10);
check("title", text(0, 1), "Amount");
check("alignment", grid.ColAlignment(2), 4);
check("row title", text(2, 0), "second");

grid.Select(1, 1, 3, 2);
grid.Clip = "a\tb\r\nc\td\rsurplus\t\tdropped";
check("first row", text(1, 1) + text(1, 2), "ab");
check("second row, after both line ends", text(2, 1) + text(2, 2), "cd");
check("third row", text(3, 1) + "/" + text(3, 2) + "/" + text(3, 3), "surplus//");
check("Clip", grid.Clip, "a\tb\rc\td\rsurplus\t");

grid.ClipSeparators = ",;";
check("Clip with separators", grid.Clip, "a,b;c,d;surplus,");
grid.Clip = "1,2;,4";
check("an empty part clears", text(2, 1), "");
check("a missing row stays", text(3, 1), "surplus");
grid.Clip = "";
check("an empty text clears the current cell alone", text(1, 1) + text(1, 2), "2");

function code(what, action, expected) {
    try {
        action();
        check(what, "no error", expected);
    } catch (error) {
        check(what, error.number & 0xFFFF, expected);
    }
}
code("one separator", function () { grid.ClipSeparators = ","; }, 380);
code("two equal separators", function () { grid.ClipSeparators = ",,"; }, 380);
grid.ClipSeparators = "";
check("no separators", grid.Clip, "\t2\r\t4\rsurplus\t");

grid = null;
WScript.Quit(failures ? 1 : 0);
