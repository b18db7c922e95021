// Cells, rows and columns from a language in which every number is a double and arguments may be missing.
var failures = 0;

function check(what, actual, expected) {
    if (actual !== expected) {
        WScript.Echo("FAIL " + what + ": " + actual + " instead of " + expected);
        ++failures;
    }
}

function checkFails(what, code, action) {
    var number = 0;
    try {
        action();
    } catch (error) {
        number = error.number & 0xFFFF;
    }
    check(what, number, code);
}

var grid = new ActiveXObject("LorvGrid8.LorvGridL");
var cpText = 0, cpAlignment = 2, cpChecked = 5, cpBackColor = 6, cpFont = 10, cpFontName = 11, cpFontSize = 12, cpData = 20;

grid.Cell(cpText, 1, 2) = "text";
check("Cell", grid.Cell(cpText, 1, 2), "text");
grid.Cell(cpText, 7 / 2, 1) = "rounded";
check("rounded index", grid.TextMatrix(4, 1), "rounded");
grid.Cell(cpText, "3", "4") = 12;
check("text indices", grid.TextMatrix(3, 4), "12");
check("value", grid.ValueMatrix(3, 4), 12);
grid.Row = 5;
grid.Col = 6;
grid.Cell(cpText) = "current";
check("current", grid.Text, "current");
grid.Cell(cpBackColor, 3, 3, 1, 1) = 255;
check("corners in any order", grid.Cell(cpBackColor, 2, 2), 255);
grid.Cell(cpChecked, 1, 1) = true;
check("checked", grid.Cell(cpChecked, 1, 1), 1);
grid.Cell(cpFontSize, 1, 1) = 12;
var font = grid.Cell(cpFont, 1, 1);
check("size", grid.Cell(cpFontSize, 1, 1), 12);
grid.Cell(cpFontName, 1, 1) = "Courier New";
// A font object can bear the name of the face that stands in for a missing one.
check("font object", grid.Cell(cpFont, 1, 1).Name != "", true);
font.Bold = true;
grid.Cell(cpFont, 2, 2) = font;
check("font given", grid.Cell(cpFont, 2, 2).Bold, true);
grid.Cell(cpData, 1, 1) = { name: "object" };
check("object as data", grid.Cell(cpData, 1, 1).name, "object");
grid.RowData(1) = grid.Cell(cpData, 1, 1);
check("object as row data", grid.RowData(1).name, "object");

checkFails("index", 0x17D, function () { grid.Cell(cpText, 1, 99) = "x"; });
checkFails("value", 0x17C, function () { grid.Cell(cpAlignment, 1, 1) = 99; });
checkFails("row of AddItem", 0x17D, function () { grid.AddItem("x", grid.Rows + 1); });
checkFails("row of RemoveItem", 0x17D, function () { grid.RemoveItem(grid.Rows); });
checkFails("position", 0x17D, function () { grid.RowPosition(1) = grid.Rows; });

var rows = grid.Rows;
grid.AddItem("a\tb\tc");
check("added", grid.TextMatrix(rows, 2), "c");
grid.AddItem("", undefined);
check("undefined row", grid.Rows, rows + 2);
grid.RemoveItem(rows);
grid.ColKey(1) = "key";
check("ColIndex", grid.ColIndex("KEY"), 1);
grid.ColPosition(1) = 3;
check("key moved", grid.ColIndex("key"), 3);
grid.Clear();
check("cleared", grid.TextMatrix(3, 4), "");
grid.CellBorder(255, 1, 1, 1, 1, 0, 0);
grid.CellBorderRange(1, 1, 2, 2, 255, 1, 1, 1, 1, 0, 0);
checkFails("border outside", 0x17D, function () { grid.CellBorderRange(1, 1, 99, 2, 255, 1, 1, 1, 1, 0, 0); });

WScript.Quit(failures);
