// The look, the switches, the extents and the texts of a grid, used as a script host uses them.
var failures = 0;

function check(what, actual, expected) {
    if (actual !== expected) {
        WScript.Echo("FAIL " + what + ": " + actual + " instead of " + expected);
        ++failures;
    }
}

// Hosts see the code of a failure as the number of the exception.
function checkCode(what, action, expected) {
    var code = 0;
    try {
        action();
    } catch (e) {
        code = e.number & 0xFFFF;
    }
    check(what, code, expected);
}

var grid = new ActiveXObject("LorvGrid8.LorvGridL");

check("Version", grid.Version, 802);
check("Rows", grid.Rows, 50);
check("Cols", grid.Cols, 10);
check("ScrollTrack", grid.ScrollTrack, true);

grid.BackColorAlternate = 0x00FF00;
grid.BackColor = 0xC0FFFF;
check("BackColorAlternate after BackColor", grid.BackColorAlternate, 0xC0FFFF);

grid.WordWrap = true;
check("WordWrap", grid.WordWrap, true);
grid.GridLines = -1;
check("GridLines = -1", grid.GridLines, 1);
grid.Redraw = 7;
check("Redraw = 7", grid.Redraw, 1);
grid.Editable = true;
check("Editable = true", grid.Editable, 1);

grid.FontName = "Tahoma";
grid.FontUnderline = true;
// The system may name the face that stands in for a missing one.
check("Font.Name", grid.Font.Name, grid.FontName);
check("Font.Underline", grid.Font.Underline, true);

var other = new ActiveXObject("LorvGrid8.LorvGridL");
other.Font = grid.Font;
check("FontName of the other grid", other.FontName, grid.FontName);

grid.Rows = 30;
grid.Cols = 4;
grid.FixedRows = 2;
grid.FrozenRows = 3;
check("FrozenRows", grid.FrozenRows, 3);
for (var row = 0; row < 30; ++row)
    for (var col = 0; col < 4; ++col)
        grid.TextMatrix(row, col) = row + ":" + col;
var wrong = 0;
for (row = 0; row < 30; ++row)
    for (col = 0; col < 4; ++col)
        if (grid.TextMatrix(row, col) != row + ":" + col)
            ++wrong;
check("texts that differ", wrong, 0);
grid.TextMatrix(3, 3) = "";
check("a cleared cell", grid.TextMatrix(3, 3), "");

checkCode("FrozenRows = 29", function () { grid.FrozenRows = 29; }, 380);
checkCode("FixedRows = 31", function () { grid.FixedRows = 31; }, 380);
checkCode("FixedRows = 30", function () { grid.FixedRows = 30; }, 0);
checkCode("Appearance = 4", function () { grid.Appearance = 4; }, 380);
checkCode("MousePointer = 20", function () { grid.MousePointer = 20; }, 380);
checkCode("MousePointer = 99", function () { grid.MousePointer = 99; }, 0);
checkCode("Version = 1", function () { grid.Version = 1; }, 383);
checkCode("TextMatrix(0, 4)", function () { return grid.TextMatrix(0, 4); }, 381);
checkCode("GridLineWidth = -1", function () { grid.GridLineWidth = -1; }, 380);

WScript.Quit(failures > 0 ? 1 : 0);
