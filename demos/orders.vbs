' The main demo: a list of orders from a data file, with headers, frozen columns and colours. Headers sort and
' move their columns, typing searches, edges resize and freeze, tips show what is cut off, cells
' are edited.
Option Explicit

Const colNumber = 1, colDate = 2, colCustomer = 3, colRegion = 4, colCity = 5, colProduct = 6
Const colQuantity = 7, colPrice = 8, colTotal = 9, colPaid = 10, colRush = 11, colDone = 12
Const colCount = 13 ' with the fixed column
Const rowTitle = 0, rowHeader = 1, rowFirst = 2

Dim missing ' members that this build of the control does not have yet
missing = 0

ShapeGrid
LoadOrders
Dress
GoThroughFiles
SortOrders
MergeRegions
TakeGestures
TakeEdits
Host.Title = "Orders: " & Grid.Rows - rowFirst & " rows; " & Found("Rosa", "Jürgen Castaño")
If missing > 0 Then Host.Echo "members not built yet:", missing

Sub ShapeGrid
    Grid.AutoResize = False
    Grid.Cols = colCount
    Grid.FixedCols = 1
    On Error Resume Next
    Grid.Redraw = 0 : Tally
End Sub

' The first line of the file has the headers, so the fixed rows begin with the title alone.
Sub LoadOrders
    Dim row
    Grid.FixedRows = rowHeader
    Grid.LoadGrid Host.DataFile("orders.txt"), lorvFileTabText
    Grid.FixedRows = rowFirst
    Grid.FrozenCols = 3
    Grid.TextMatrix(rowTitle, 1) = "Orders of 2023 and 2024, by region and city"
    For row = rowFirst To Grid.Rows - 1
        Grid.TextMatrix(row, 0) = row - rowFirst + 1
    Next
End Sub

' The whole grid goes into a file of its own, that into an archive, and back. The file keeps texts in the code page, so
' names beyond it come from the data file again. It keeps no unset back colours: the title has one.
Sub GoThroughFiles
    Dim files, folder
    Set files = CreateObject("Scripting.FileSystemObject")
    folder = Replace(CreateObject("WScript.Shell").ExpandEnvironmentStrings("%TEMP%"), Chr(0), "")
    On Error Resume Next
    Grid.Cell(lorvcpBackColor, rowTitle, 1) = Grid.BackColorFixed : Tally
    Grid.SaveGrid folder & "\orders.lv", lorvFileAll : Tally
    Grid.Archive folder & "\orders.lzh", folder & "\orders.lv", arcAdd : Tally
    files.DeleteFile folder & "\orders.lv" : Err.Clear
    Grid.Rows = 1
    Grid.Archive folder & "\orders.lzh", folder & "\orders.lv", arcExtract : Tally
    Grid.LoadGrid folder & "\orders.lv", lorvFileAll : Tally
    files.DeleteFile folder & "\orders.lv" : files.DeleteFile folder & "\orders.lzh" : Err.Clear
    LoadOrders
End Sub

' What a later build of the control can show more of. Each line may name a member that is not there yet.
Sub Dress
    Dim widths, i
    widths = Array(600, 780, 1150, 2100, 900, 1300, 1500, 900, 1050, 1200, 650, 900, 1200)
    On Error Resume Next
    For i = 0 To colCount - 1
        Grid.ColWidth(i) = widths(i) : Tally
    Next
    Grid.BackColorFixed = RGB(214, 223, 236) : Tally
    Grid.ForeColorFixed = RGB(28, 45, 72) : Tally
    Grid.BackColorFrozen = RGB(232, 238, 247) : Tally
    Grid.BackColorAlternate = RGB(246, 248, 251) : Tally
    Grid.BackColorBkg = RGB(225, 229, 236) : Tally
    Grid.BackColorSel = RGB(64, 120, 192) : Tally
    Grid.ForeColorSel = RGB(255, 255, 255) : Tally
    Grid.GridColor = RGB(208, 214, 224) : Tally
    Grid.GridColorFixed = RGB(160, 175, 198) : Tally
    For Each i In Array(colQuantity, colPrice, colTotal)
        Grid.ColAlignment(i) = lorvAlignRightCenter : Tally
    Next
    Grid.ColFormat(colPrice) = "#,##0.00" : Tally
    Grid.ColFormat(colTotal) = "#,##0.00" : Tally
    Grid.ColDataType(colPaid) = 11 : Tally
    Grid.ColDataType(colDate) = lorvDTDate : Tally
    Grid.ColFormat(colDate) = "yyyy-mm-dd" : Tally
    Grid.RowHeight(rowTitle) = 480 : Tally
    Grid.Cell(lorvcpFontSize, rowTitle, 1) = 13 : Tally
    Grid.Cell(lorvcpFontBold, rowTitle, 1) = True : Tally
    Grid.Cell(lorvcpAlignment, rowTitle, 1) = lorvAlignLeftCenter : Tally
End Sub

' By region, and by city within a region: a column's own order, and the columns of the selection.
Sub SortOrders
    On Error Resume Next
    Grid.ColSort(colRegion) = lorvSortStringNoCaseAscending : Tally
    Grid.ColSort(colCity) = lorvSortStringNoCaseDescending : Tally
    Grid.Select rowFirst, colRegion, rowFirst, colCity : Tally
    Grid.Sort = lorvSortUseColSort : Tally
    Grid.Select rowFirst, colCustomer : Tally
End Sub

' Equal regions show as one cell, and the title flows over the empty cells beside it: two modes, one for the
' fixed cells and one for the others, which a value from 100 on holds as two digits.
Sub MergeRegions
    On Error Resume Next
    Grid.MergeCells = 100 + 10 * lorvMergeSpill + lorvMergeFree : Tally
    Grid.MergeCol(colRegion) = True : Tally
    Grid.Redraw = lorvRDBuffered : Tally
End Sub

' What a person may do with the mouse and the keyboard.
Sub TakeGestures
    On Error Resume Next
    Grid.ExplorerBar = lorvExSortShowAndMove : Tally
    Grid.AllowUserResizing = lorvResizeBoth : Tally
    Grid.AllowUserFreezing = lorvFreezeBoth : Tally
    Grid.AutoSearch = lorvSearchFromTop : Tally
    Grid.TabBehavior = lorvTabCells : Tally
    Grid.Editable = lorvEDKbdMouse : Tally
    Grid.ColComboList(colRegion) = "North|South|East|West" : Tally
    Grid.ToolTips = True : Tally
    Grid.ScrollTips = True : Tally
End Sub

' What a person may change: dates under a mask, products from a list with their prices, rush by its words, paid by
' a check box; a button beside the customer tells of the order.
Sub TakeEdits
    On Error Resume Next
    Grid.Editable = lorvEDKbdMouse : Tally
    Grid.ColEditMask(colDate) = "0000-00-00" : Tally
    Grid.ColComboList(colProduct) = ProductList : Tally
    Grid.ColComboList(colRush) = "#0;Normal|#1;Express" : Tally
    Grid.ColComboList(colCustomer) = "|..." : Tally
End Sub

' Each product with what it cost first, in two columns.
Function ProductList
    Dim prices, row, product
    Set prices = CreateObject("Scripting.Dictionary")
    For row = rowFirst To Grid.Rows - 1
        product = Grid.TextMatrix(row, colProduct)
        If Not prices.Exists(product) Then prices.Add product, Grid.TextMatrix(row, colPrice)
    Next
    ProductList = ""
    For Each product In prices.Keys
        If Len(ProductList) > 0 Then ProductList = ProductList & "|"
        ProductList = ProductList & product & vbTab & prices.Item(product)
    Next
End Function

Sub Grid_CellButtonClick(Row, Col)
    MsgBox Grid.TextMatrix(Row, colCustomer) & ", " & Grid.TextMatrix(Row, colCity), 0, _
        "Order " & Grid.TextMatrix(Row, colNumber)
End Sub

' A quantity that cannot be comes back, with the reason in the title.
Sub Grid_ValidateEdit(Row, Col, Cancel)
    If Col <> colQuantity Then Exit Sub
    If Not IsNumeric(Grid.EditText) Then
        Cancel = True
    ElseIf CDbl(Grid.EditText) < 1 Or CDbl(Grid.EditText) > 999 Then
        Cancel = True
    End If
    If Cancel Then Host.Title = "A quantity is a number from 1 to 999, not " & Grid.EditText
End Sub

' The whole text of a cell that does not show all of it, and the order that it belongs to.
Sub Grid_MouseMove(Button, Shift, X, Y)
    Dim row, col, tip
    row = Grid.MouseRow
    col = Grid.MouseCol
    If row >= rowFirst And col >= 1 Then tip = Grid.TextMatrix(row, col)
    If Len(tip) > 0 Then tip = "Order " & Grid.TextMatrix(row, colNumber) & ": " & tip
    If tip <> Grid.ToolTipText Then Grid.ToolTipText = tip
End Sub

Sub Grid_BeforeScrollTip(Row)
    Grid.ScrollTipText = "Order " & Grid.TextMatrix(Row, colNumber) & ", " & Grid.TextMatrix(Row, colCustomer)
End Sub

Sub Grid_AfterSort(Col, Order)
    Host.Title = "Orders by " & Grid.TextMatrix(rowHeader, Col)
End Sub

' Where customers are found: by the beginning of a name, and by a whole one.
Function Found(beginning, whole)
    Dim first, pattern
    On Error Resume Next
    Found = beginning & "... in row " & Grid.FindRow(beginning, rowFirst, colCustomer, True, False) & ", "
    Found = Found & whole & " in row " & Grid.FindRow(whole, rowFirst, colCustomer) & ", "
    Found = Found & "/^R.*s$/ in row " & Grid.FindRowRegex("^R.*s$", rowFirst, colCustomer)
    Tally
End Function

' Counts the members that answered "not implemented"; any other failure is shown.
Sub Tally
    If Err.Number = 0 Then Exit Sub
    missing = missing + 1
    If Err.Number <> 445 And Err.Number <> 438 Then Host.Echo "not set:", Hex(Err.Number), Err.Description
    Err.Clear
End Sub
