// Sorting and searching as a script host uses them.
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

function fill(texts) {
    grid.Rows = texts.length + 1;
    for (var i = 0; i < texts.length; ++i)
        grid.TextMatrix(i + 1, 1) = texts[i];
    grid.Select(1, 1);
}

function order() {
    var texts = [];
    for (var row = 1; row < grid.Rows; ++row)
        texts.push(grid.TextMatrix(row, 1));
    return texts.join(" ");
}

fill(["10", "9", "100", "1"]);
grid.Sort = 3;
check("numbers", order(), "1 9 10 100");
grid.Sort = 7;
check("texts", order(), "1 10 100 9");

grid.ColDataType(1) = 3;
grid.Sort = 2;
check("a column of numbers", order(), "100 10 9 1");

fill(["b", "a", "b", "a"]);
for (var row = 1; row <= 4; ++row)
    grid.TextMatrix(row, 2) = String(row);
grid.ColSort(1) = 0;
grid.ColSort(2) = 4;
grid.Select(1, 1, 1, 2);
grid.Sort = 10;
check("by the second column", order(), "a b a b");
check("its first row", grid.TextMatrix(1, 2), "4");
grid.ColSort(1) = 9;
checkCode("a column with an order of its own that is none", function () { grid.Sort = 10; }, 380);

check("FindRow", grid.FindRow("a", 2, 1), 3);
check("FindRow, data", grid.FindRow("nothing"), -1);
check("FindRowRegex", grid.FindRowRegex("[2-3]", 1, 2), 2);
checkCode("Sort = -1", function () { grid.Sort = -1; }, 380);
checkCode("FindRow outside", function () { return grid.FindRow("a", 0, 99); }, 381);

WScript.Quit(failures > 0 ? 1 : 0);
