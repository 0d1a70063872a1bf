-- The books: all global tables and the templates of the per-year tables.
--
-- Types are the words that the data layer reads: BOOLEAN, INTEGER (32 bits), DOUBLE, TEXT. A value is checked as it is written,
-- before the column converts it, so a text never enters a number field; the data layer converts '2002' beforehand. A whole
-- number may enter a text field, a fraction only as the text that the data layer makes of it (the store would write 1500.0).
-- A Null written to a boolean is False.
--
-- The two counters are the only keys. Every other uniqueness is kept by the routines, and states that break it (doubled details,
-- doubled years) can arise and must be held. Only booleans and the work table of the final results have defaults; totals and
-- counters start Null. No result and no order depends on an index; those of a template are made for its year's tables too, so
-- an index bears the name of its table once. Nothing here needs more than the stock shell to be read.

-- The known financial years. Fnncl_Yr is the long form, "2001-2002"; one row bears the flag of the current year.
CREATE TABLE Fnncl_Yr_Mstr (
    Fnncl_Yr_Id  INTEGER PRIMARY KEY AUTOINCREMENT,
    Fnncl_Yr     TEXT    CHECK (typeof(Fnncl_Yr) IN ('text', 'integer', 'null')),
    Crrnt_Yr_Flg BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK (typeof(Crrnt_Yr_Flg) = 'integer' AND Crrnt_Yr_Flg IN (0, 1))
);

-- The tree of groups, with one leaf for each ledger. Parent_Id 0 marks a primary group; only those have a GrpType:
-- T Trading, P Profit and Loss, B Balance Sheet.
CREATE TABLE Group_Head_Master (
    Group_Id        INTEGER PRIMARY KEY AUTOINCREMENT,
    Group_Head_Name TEXT    CHECK (typeof(Group_Head_Name) IN ('text', 'integer', 'null')),
    Parent_Id       INTEGER CHECK (typeof(Parent_Id) IN ('integer', 'null')),
    GrpType         TEXT    CHECK (typeof(GrpType) IN ('text', 'integer', 'null'))
);

-- The ledgers, the same for all years. Ledger_ID is the Group_Id of the ledger's own leaf, Group_Id that of its group.
CREATE TABLE Ledger_Master (
    Ledger_ID      INTEGER CHECK (typeof(Ledger_ID) IN ('integer', 'null')),
    Name           TEXT    CHECK (typeof(Name) IN ('text', 'integer', 'null')),
    Group_Id       INTEGER CHECK (typeof(Group_Id) IN ('integer', 'null')),
    PrimaryGrp     TEXT    CHECK (typeof(PrimaryGrp) IN ('text', 'integer', 'null')),
    Company_name   TEXT    CHECK (typeof(Company_name) IN ('text', 'integer', 'null')),
    contact_person TEXT    CHECK (typeof(contact_person) IN ('text', 'integer', 'null')),
    Designation    TEXT    CHECK (typeof(Designation) IN ('text', 'integer', 'null')),
    Address1       TEXT    CHECK (typeof(Address1) IN ('text', 'integer', 'null')),
    Address2       TEXT    CHECK (typeof(Address2) IN ('text', 'integer', 'null')),
    City           TEXT    CHECK (typeof(City) IN ('text', 'integer', 'null')),
    Tel1           TEXT    CHECK (typeof(Tel1) IN ('text', 'integer', 'null')),
    Tel2           TEXT    CHECK (typeof(Tel2) IN ('text', 'integer', 'null')),
    Pincode        TEXT    CHECK (typeof(Pincode) IN ('text', 'integer', 'null')),
    Pager          TEXT    CHECK (typeof(Pager) IN ('text', 'integer', 'null')),
    Mobile         TEXT    CHECK (typeof(Mobile) IN ('text', 'integer', 'null')),
    Email          TEXT    CHECK (typeof(Email) IN ('text', 'integer', 'null')),
    Notes          TEXT    CHECK (typeof(Notes) IN ('text', 'integer', 'null')),
    Deleted        BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK (typeof(Deleted) = 'integer' AND Deleted IN (0, 1))
);
CREATE INDEX ix_Ledger_Master_Ledger_ID ON Ledger_Master (Ledger_ID);

-- A ledger's figures, one row for each year (its short form). Doubled rows can arise and must be held.
CREATE TABLE Ledger_Details (
    Ledger_ID      INTEGER CHECK (typeof(Ledger_ID) IN ('integer', 'null')),
    Fnncl_Yr       INTEGER CHECK (typeof(Fnncl_Yr) IN ('integer', 'null')),
    Opening_Bal    DOUBLE  CHECK (typeof(Opening_Bal) IN ('real', 'integer', 'null')),
    Bal_Type       TEXT    CHECK (typeof(Bal_Type) IN ('text', 'integer', 'null')),
    Closing_Bal    DOUBLE  CHECK (typeof(Closing_Bal) IN ('real', 'integer', 'null')),
    LedDetDRTxnTot DOUBLE  CHECK (typeof(LedDetDRTxnTot) IN ('real', 'integer', 'null')),
    LedDetCRTxnTot DOUBLE  CHECK (typeof(LedDetCRTxnTot) IN ('real', 'integer', 'null'))
);
CREATE INDEX ix_Ledger_Details_Ledger_ID ON Ledger_Details (Ledger_ID, Fnncl_Yr);

-- The voucher number register: carried into each new year, read by nothing.
CREATE TABLE tblvchrmst (
    vchrmstType    TEXT    CHECK (typeof(vchrmstType) IN ('text', 'integer', 'null')),
    vchrmstFinYear INTEGER CHECK (typeof(vchrmstFinYear) IN ('integer', 'null')),
    vchrmstLastNo  INTEGER CHECK (typeof(vchrmstLastNo) IN ('integer', 'null'))
);

-- The work table of the final results. A line fills one side; the other must read as text and 0, hence the defaults.
CREATE TABLE tblsysTPL (
    ParticularDr TEXT    DEFAULT ' ' CHECK (typeof(ParticularDr) IN ('text', 'integer', 'null')),
    AmtDr        DOUBLE  DEFAULT 0 CHECK (typeof(AmtDr) IN ('real', 'integer', 'null')),
    ParticularCr TEXT    DEFAULT ' ' CHECK (typeof(ParticularCr) IN ('text', 'integer', 'null')),
    AmtCr        DOUBLE  DEFAULT 0 CHECK (typeof(AmtCr) IN ('real', 'integer', 'null')),
    Type         TEXT    CHECK (typeof(Type) IN ('text', 'integer', 'null'))
);

-- The error log.
CREATE TABLE tblError (
    frmName   TEXT    CHECK (typeof(frmName) IN ('text', 'integer', 'null')),
    ErrNumber INTEGER CHECK (typeof(ErrNumber) IN ('integer', 'null')),
    ErrDesc   TEXT    CHECK (typeof(ErrDesc) IN ('text', 'integer', 'null')),
    ErrSource TEXT    CHECK (typeof(ErrSource) IN ('text', 'integer', 'null')),
    ErrDate   TEXT    CHECK (typeof(ErrDate) IN ('text', 'integer', 'null')),
    ErrTime   TEXT    CHECK (typeof(ErrTime) IN ('text', 'integer', 'null'))
);

-- Template: voucher rows. LedgerLedBal is a text such as 1500Dr. Nothing writes LedgerVchrNo.
CREATE TABLE tblsysLedgerstr (
    LedgerTrnNo       INTEGER CHECK (typeof(LedgerTrnNo) IN ('integer', 'null')),
    LedgerCode        INTEGER CHECK (typeof(LedgerCode) IN ('integer', 'null')),
    LedgerName        TEXT    CHECK (typeof(LedgerName) IN ('text', 'integer', 'null')),
    LedgerTxnDate     INTEGER CHECK (typeof(LedgerTxnDate) IN ('integer', 'null')),
    LedgerNarration   TEXT    CHECK (typeof(LedgerNarration) IN ('text', 'integer', 'null')),
    LedgerTrnType     TEXT    CHECK (typeof(LedgerTrnType) IN ('text', 'integer', 'null')),
    LedgerDrAmt       DOUBLE  CHECK (typeof(LedgerDrAmt) IN ('real', 'integer', 'null')),
    LedgerCrAmt       DOUBLE  CHECK (typeof(LedgerCrAmt) IN ('real', 'integer', 'null')),
    LedgerLedBal      TEXT    CHECK (typeof(LedgerLedBal) IN ('text', 'integer', 'null')),
    LedgerMcGenerated BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK (typeof(LedgerMcGenerated) = 'integer' AND LedgerMcGenerated IN (0, 1)),
    LedgerVchrNo      INTEGER CHECK (typeof(LedgerVchrNo) IN ('integer', 'null'))
);
CREATE INDEX ix_tblsysLedgerstr_TrnNo ON tblsysLedgerstr (LedgerTrnNo);
CREATE INDEX ix_tblsysLedgerstr_TxnDate ON tblsysLedgerstr (LedgerTxnDate);
CREATE INDEX ix_tblsysLedgerstr_Totals ON tblsysLedgerstr (LedgerCode, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt);

-- Template: the bills of stock receipts. BillID is the number as typed.
CREATE TABLE tblSysBills (
    BillID           TEXT    CHECK (typeof(BillID) IN ('text', 'integer', 'null')),
    BillTxnID        INTEGER CHECK (typeof(BillTxnID) IN ('integer', 'null')),
    BillVchrNo       INTEGER CHECK (typeof(BillVchrNo) IN ('integer', 'null')),
    ISPoBill         BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK (typeof(ISPoBill) = 'integer' AND ISPoBill IN (0, 1)),
    InstrumentID     INTEGER CHECK (typeof(InstrumentID) IN ('integer', 'null')),
    BillDiscount     DOUBLE  CHECK (typeof(BillDiscount) IN ('real', 'integer', 'null')),
    BillTaxRate      DOUBLE  CHECK (typeof(BillTaxRate) IN ('real', 'integer', 'null')),
    BillOtherCharges DOUBLE  CHECK (typeof(BillOtherCharges) IN ('real', 'integer', 'null'))
);
CREATE INDEX ix_tblSysBills_TxnID ON tblSysBills (BillTxnID);
CREATE INDEX ix_tblSysBills_VchrNo ON tblSysBills (BillVchrNo);

-- Template: stock movements. ItemLedBillNo is the bill number as typed, a text.
CREATE TABLE tblsysItemLedstr (
    ItemLedTrnNo     INTEGER CHECK (typeof(ItemLedTrnNo) IN ('integer', 'null')),
    ItemLedTrnDate   INTEGER CHECK (typeof(ItemLedTrnDate) IN ('integer', 'null')),
    ItemLedTrnType   TEXT    CHECK (typeof(ItemLedTrnType) IN ('text', 'integer', 'null')),
    ItemLedItemID    INTEGER CHECK (typeof(ItemLedItemID) IN ('integer', 'null')),
    ItemLedPONo      INTEGER CHECK (typeof(ItemLedPONo) IN ('integer', 'null')),
    ItemLedItemDesc  TEXT    CHECK (typeof(ItemLedItemDesc) IN ('text', 'integer', 'null')),
    ItemLedTrnRptQty DOUBLE  CHECK (typeof(ItemLedTrnRptQty) IN ('real', 'integer', 'null')),
    ItemLedTrnIssQty DOUBLE  CHECK (typeof(ItemLedTrnIssQty) IN ('real', 'integer', 'null')),
    ItemLedNote      TEXT    CHECK (typeof(ItemLedNote) IN ('text', 'integer', 'null')),
    ItemLedUnitPrice DOUBLE  CHECK (typeof(ItemLedUnitPrice) IN ('real', 'integer', 'null')),
    ItemLedBillNo    TEXT    CHECK (typeof(ItemLedBillNo) IN ('text', 'integer', 'null')),
    ItemLandingCost  DOUBLE  CHECK (typeof(ItemLandingCost) IN ('real', 'integer', 'null'))
);
CREATE INDEX ix_tblsysItemLedstr_TrnNo ON tblsysItemLedstr (ItemLedTrnNo);
CREATE INDEX ix_tblsysItemLedstr_Item ON tblsysItemLedstr (ItemLedItemID, ItemLedTrnDate);

-- Template: purchase order heads.
CREATE TABLE tblsysPOstr (
    poNumber       INTEGER CHECK (typeof(poNumber) IN ('integer', 'null')),
    poSupplierID   INTEGER CHECK (typeof(poSupplierID) IN ('integer', 'null')),
    PoDate         INTEGER CHECK (typeof(PoDate) IN ('integer', 'null')),
    poSupplierName TEXT    CHECK (typeof(poSupplierName) IN ('text', 'integer', 'null')),
    PoDlvTerm      TEXT    CHECK (typeof(PoDlvTerm) IN ('text', 'integer', 'null')),
    poCancelled    BOOLEAN NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK (typeof(poCancelled) = 'integer' AND poCancelled IN (0, 1))
);
CREATE INDEX ix_tblsysPOstr_Number ON tblsysPOstr (poNumber);

-- Template: purchase order lines. PoDetQtyRecd starts Null.
CREATE TABLE tblsysPODetstr (
    PoDetPoNo     INTEGER CHECK (typeof(PoDetPoNo) IN ('integer', 'null')),
    PoDetItemID   INTEGER CHECK (typeof(PoDetItemID) IN ('integer', 'null')),
    PoDetItemDesc TEXT    CHECK (typeof(PoDetItemDesc) IN ('text', 'integer', 'null')),
    PoDetQtyOrder DOUBLE  CHECK (typeof(PoDetQtyOrder) IN ('real', 'integer', 'null')),
    PoDetQtyRecd  DOUBLE  CHECK (typeof(PoDetQtyRecd) IN ('real', 'integer', 'null'))
);
CREATE INDEX ix_tblsysPODetstr_PoNo ON tblsysPODetstr (PoDetPoNo);

-- Template: items and their stock counters. Item_ID is no key: as one it would change the order of the rows.
CREATE TABLE ItemMasterstr (
    Item_ID        INTEGER CHECK (typeof(Item_ID) IN ('integer', 'null')),
    Item_Name      TEXT    CHECK (typeof(Item_Name) IN ('text', 'integer', 'null')),
    Item_Type      TEXT    CHECK (typeof(Item_Type) IN ('text', 'integer', 'null')),
    Unit_Desc      TEXT    CHECK (typeof(Unit_Desc) IN ('text', 'integer', 'null')),
    Open_Stock     DOUBLE  CHECK (typeof(Open_Stock) IN ('real', 'integer', 'null')),
    Reorder_Level  DOUBLE  CHECK (typeof(Reorder_Level) IN ('real', 'integer', 'null')),
    Overflow_Level DOUBLE  CHECK (typeof(Overflow_Level) IN ('real', 'integer', 'null')),
    Unit_Price     DOUBLE  CHECK (typeof(Unit_Price) IN ('real', 'integer', 'null')),
    Balance        DOUBLE  CHECK (typeof(Balance) IN ('real', 'integer', 'null')),
    Notes          TEXT    CHECK (typeof(Notes) IN ('text', 'integer', 'null')),
    IssuedQty      DOUBLE  CHECK (typeof(IssuedQty) IN ('real', 'integer', 'null')),
    ReceivedQty    DOUBLE  CHECK (typeof(ReceivedQty) IN ('real', 'integer', 'null'))
);
CREATE INDEX ix_ItemMasterstr_ItemID ON ItemMasterstr (Item_ID);
