// Merging from a language in which every number is a double. What the links are shows in a check box, which
// goes to every cell of a merged range.
var failures = 0;

function check(what, actual, expected) {
    if (actual !== expected) {
        WScript.Echo("FAIL " + what + ": " + actual + " instead of " + expected);
        ++failures;
    }
}

function checkCode(what, action, expected) {
    var code = 0;
    try {
        action();
    } catch (error) {
        code = error.number & 0xFFFF;
    }
    check(what, code, expected);
}

var grid = new ActiveXObject("LorvGrid8.LorvGridL");
grid.Rows = 6;
grid.Cols = 5;
for (var row = 1; row < 6; ++row)
    grid.TextMatrix(row, 1) = row < 4 ? "north" : "south";

// Which rows of the column the merged range of a cell covers.
function boxes(row, col) {
    for (var each = 0; each < 6; ++each)
        grid.Cell(5, each, col) = 0;
    grid.Select(row, col);
    grid.CellChecked = 1;
    var rows = "";
    for (each = 0; each < 6; ++each)
        if (grid.Cell(5, each, col) === 1)
            rows += each;
    return rows;
}

check("nothing merged", boxes(2, 1), "2");
grid.MergeCells = "1";
check("the mode alone", boxes(2, 1), "2");
grid.MergeCol("1") = 1;
check("MergeCol", grid.MergeCol(1), true);
check("MergeRow", grid.MergeRow(1), false);
check("a column", boxes(2, 1), "123");
check("its other range", boxes(5, 1), "45");
grid.MergeCol(-1) = false;
check("no column", boxes(2, 1), "2");

grid.MergeCompare = 3.0;
grid.MergeCol(2) = true;
check("empty cells, their nulls included", boxes(1, 2), "12345");
grid.MergeCompare = 102;
check("MergeCompare", grid.MergeCompare, 2);
check("GroupCompare", grid.GroupCompare, 0);
grid.MergeCells = 156;
check("MergeCellsFixed", grid.MergeCellsFixed, 5);
check("MergeCells", grid.MergeCells, 6);

checkCode("MergeCells = 99", function () { grid.MergeCells = 99; }, 380);
checkCode("MergeCellsFixed = 100", function () { grid.MergeCellsFixed = 100; }, 380);
checkCode("MergeCompare = 4", function () { grid.MergeCompare = 4; }, 380);
checkCode("MergeRow(6)", function () { grid.MergeRow(6) = true; }, 381);
checkCode("MergeCol(-1)", function () { return grid.MergeCol(-1); }, 381);

WScript.Quit(failures > 0 ? 1 : 0);
