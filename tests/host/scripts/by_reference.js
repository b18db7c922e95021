// A JScript handler answers with its result.
var answer;
Grid.Rows = 10;
Grid.Cols = 5;
Grid.Row = 2;
answer = true;
Grid.Row = 4;
Host.Check(Grid.Row == 2, "the result true was not obeyed, Row is " + Grid.Row);
answer = undefined;
Grid.Row = 4;
Host.Check(Grid.Row == 4, "no result was not obeyed, Row is " + Grid.Row);

function Grid_BeforeRowColChange(oldRow, oldCol, newRow, newCol, cancel) {
    return answer;
}
