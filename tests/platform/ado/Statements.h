#pragma once

namespace ado::test {

// The statements of the class and of the screens, with values in their places.
inline constexpr const char* SystemStatements[] = {
    "Select fnncl_Yr from Fnncl_Yr_Mstr where Crrnt_Yr_Flg = True",
    "Insert Into Fnncl_Yr_Mstr (Fnncl_yr, Crrnt_Yr_Flg) Values ('2001-2002', True)",
    "Select * Into tb_Ledger2002  From tblSysLedgerStr",
    "SELECT * INTO tbLPo2002 From tblsysPOstr",
    "Select * From Group_Head_Master Where Group_Head_Name = \"Bank\"",
    "Select * from Group_Head_Master where Group_Id = 4",
    "Insert Into tblError (frmName, ErrNumber, ErrDesc, ErrSource, ErrDate, ErrTime) Values "
    "(\"a\",\"-5\",\"b\",\"c\",\"01/04/2001\",\"10:00:00\")",
    "Select ledgerVchrNo from tb_Ledger2001 Where ledgerTrnNo = 4",
    "Insert Into tb_Ledger2001 (LedgerTrnNo, LedgerCode, LedgerName, LedgerTxnDate, LedgerNarration, "
    "LedgerTrnType, "
    "LedgerDrAmt, LedgerCrAmt, LedgerLedBal, LedgerMcGenerated) Values (1, 2, \"A\", 36980, \"n\", "
    "\"Journal\", 100, 0, "
    "\"0Dr\", True)",
    "Update Ledger_Details Set LedDetDRTxnTot = Iif(IsNull(LedDetDRTxnTot), 0, LedDetDRTxnTot) + 100 Where "
    "Ledger_ID = 2 "
    "And Fnncl_Yr = 2001",
    "Select Bal_Type, Opening_Bal, LedDetDRTxnTot, LedDetCRTxnTot From Ledger_Details Where Ledger_ID = 2 "
    "And Fnncl_Yr = "
    "2001",
    "Update Ledger_Details Set LedDetDRTxnTot = IIf(IsNull(LedDetDRTxnTot), 0, LedDetDRTxnTot) - 1.5, "
    "LedDetCRTxnTot = "
    "IIf(IsNull(LedDetCRTxnTot), 0, LedDetCRTxnTot) - 0 Where Ledger_ID = 2 And Fnncl_Yr = 2001",
    "Update Ledger_Details Set LedDetDrTxnTot = ( IIf( IsNull(LedDetDrTxnTot), 0, LedDetDrTxnTot) - -5) "
    "Where Ledger_Id = 2",
    "Delete * from tb_Ledger2001 Where LedgerTrnNo = 1",
    "Select Ledger_Master.Ledger_Id, Name From  Ledger_Master, Ledger_Details Where  "
    "(Ledger_Master.Ledger_Id = "
    "Ledger_Details.Ledger_Id  And Fnncl_Yr = 2001) And PrimaryGrp Like '%ank'",
    "Select Ledger_Master.Ledger_Id, Name, Ledger_Master.Deleted From  Ledger_Master, Ledger_Details Where "
    "Ledger_Master.Ledger_Id =  Ledger_Details.Ledger_Id And Fnncl_Yr = 2001 And (Ledger_Master.PrimaryGrp = "
    " "
    "'Suppliers' Or Ledger_Master.PrimaryGrp = 'Debtors')",
    "Select Ledger_ID, Name From Ledger_Master Where PrimaryGrp In ('Cash In Hand', 'Bank', "
    "'Income(Direct)') ",
    "Select Fnncl_Yr_Id, Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr Where Crrnt_Yr_Flg",
    "Select Fnncl_Yr_Id, Fnncl_Yr, Crrnt_Yr_Flg From Fnncl_Yr_Mstr Where  Left(Fnncl_Yr, 4) = \"2002\"",
    "Update Fnncl_Yr_Mstr Set Crrnt_Yr_Flg=0 Where Fnncl_Yr_Id <> 2",
    "INSERT INTO Ledger_Details SELECT Ledger_ID as Ledger_ID, '2002' as Fnncl_Yr , Opening_Bal, "
    "Closing_Bal, Bal_type, "
    "leddetDRTxnTOT, leddetCRTxnTOT  FROM Ledger_Details Where Fnncl_Yr = 2001",
    "Insert Into fnncl_Yr_Mstr (fnncl_Yr) Values('2002-2003')",
    "Insert Into tblvchrmst Select vchrmstType,  0 as vchrmstFinYear, 0 as vchrmstLastNo from tblvchrmst "
    "Where  "
    "vchrmstFinYear = 2001",
    "Insert Into ItemMaster2001 Select Item_id as Item_Id,Item_Name as Item_Name, Item_Type as Item_Type,  "
    "Unit_Desc as "
    "Unit_Desc, Balance  as OPen_Stock,  Reorder_Level as Reorder_Level, Overflow_Level as  OverFlow_Level, "
    "Unit_Price "
    "as Unit_Price, Balance as  Balance, Notes as  Notes, 0 as IssuedQty, 0 as ReceivedQty From "
    "ItemMaster2001",
    "Update Ledger_Details Set Closing_Bal = -12.5 Where Ledger_id = 2 And Fnncl_Yr = 2001",
    "Select A.Ledger_ID, B.Opening_Bal, B.Bal_Type  From Ledger_Master As A, Ledger_Details As B Where "
    "A.Name =  \"x\" And "
    "A.Ledger_ID = B.Ledger_ID and Fnncl_Yr = 2001 And A.Deleted = False",
    "Select A.Name, A.Ledger_ID, C.Opening_Bal, C.Bal_Type From Ledger_Master As A, Group_Head_Master As B, "
    "Ledger_Details As C Where A.Group_ID =  B.Group_ID And B.Group_Head_Name = \"x\" And A.Ledger_ID = "
    "C.Ledger_ID and "
    "Fnncl_Yr = 2001 And A.Deleted = False",
    "select ledger_ID as [Ledger Id],Name from Ledger_Master where Name like 'a%'",
    "insert into Ledger_Master(ledger_id,Name,Group_Id,primaryGrp,  Company_name,contact_person,Designation, "
    "Address1,Address2,City,  Tel1, Tel2, Pincode, Pager, Mobile, Email, Notes)  values(5 ,'a', 4,'b',' c', "
    "' d', ' e', ' "
    "f', ' g', ' h', ' i', ' j', ' k', ' l', ' m', ' n', ' o')",
    "insert into Ledger_Details(Ledger_Id,fnncl_Yr,Opening_Bal,Closing_Bal,Bal_Type) values('5', "
    "2001,12.5,12.5,'D')",
    "update Ledger_Details set Ledger_Id = 5,fnncl_Yr = 2001,Opening_Bal = 0,Closing_Bal= 0,Bal_Type=  'D' "
    "Where "
    "ledger_id = 5",
    "Delete From Group_Head_Master Where Group_Head_Name = \"x\" And Group_ID = 5 And (GrpType Not In ('B', "
    "'P', 'T') Or "
    "GrpType Is Null) And (Parent_Id Is Not Null Or Parent_ID > 0)",
    "Select * From Group_Head_Master, Ledger_Master, Ledger_Details  Where Parent_ID  <> 0 And "
    "Group_Head_Master.Group_Id = Ledger_Details.Ledger_Id And  Fnncl_yr = 2001 And Ledger_Details.Ledger_ID "
    "= "
    "Ledger_Master.Ledger_ID And Deleted = False  Order By Group_Head_Master.Group_Id",
    "Update Ledger_Details Set LedDetDRTxnTot = Iif(IsNull(LedDetDRTxnTot), 0, LedDetDRTxnTot) + 100, "
    "LedDetCRTxnTot = "
    "Iif(IsNull(LedDetCRTxnTot), 0, LedDetCRTxnTot) + (0) Where Ledger_ID = 5 And Fnncl_Yr = 2001",
    "Update Ledger_Details Set LedDetDRTxnTot = LedDetDRTxnTot - 5 Where Ledger_ID = (Select Ledger_ID From "
    "Ledger_Master "
    "Where Name =  \"x\") And Fnncl_Yr = 2001",
    "Delete From tb_Ledger2001 Where LedgerTrnNo = 1 And LedgerCode = (Select Ledger_ID From Ledger_Master "
    "Where Name = "
    "\"x\") And LedgerTxnDate = 36980 And LedgerTrnType = \"Journal\"",
    "Select Ledger_Master.Ledger_ID, Name, Group_ID, PrimaryGrp,  Opening_Bal, Closing_Bal, Bal_Type, "
    "LedDetDrTxnTot, "
    "LedDetCrTxnTot From Ledger_Master, Ledger_Details Where (PrimaryGrp<> 'Cash In Hand' Or  PrimaryGrp <> "
    "'Bank') And "
    "Ledger_Master.Ledger_ID = Ledger_Details.Ledger_ID  And Ledger_Details.Fnncl_Yr = 2001 Order By Name",
    "Select Distinct LedgerTrnNo, LedgerTrnType, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerCode, "
    "LedgerName, "
    "LedgerMcGenerated From tb_Ledger2001 Where (LedgerDrAmt >=100 OR LedgerCrAmt >= 100) Order by "
    "LedgerTxnDate",
    "SELECT  max(Item_ID)  FROM ItemMaster2001",
    "select Item_ID as [Item Id],Item_Name as [Name]  from ItemMaster2001 where Item_Name like '%'",
    "Select CStr(Item_ID) As ItemID, Item_Name, Unit_Price From ItemMaster2001 Where CStr(Item_ID) Like "
    "'12%'",
    "Select CStr(Item_ID) As ItemID, Item_Name, Unit_Price From ItemMaster2001 Where UCase(Item_Name) Like "
    "'AB%'",
    "Select Distinct ItemLedTrnNo From tblItemLed2001 Where ItemLedTrnType = 'Receipt' And ItemLedPoNo = 0",
    "Select LedgerName, LedgerTxnDate, LedgerDrAmt, LedgerCrAmt, LedgerNarration, BillID, BillDiscount, "
    "BillTaxRate, "
    "BillOtherCharges From tb_Ledger2001, tblBills2001 Where BillVchrNo = LedgerTrnNo And IsPOBill  = False "
    "And BillTxnID "
    "= 4",
    "Select LedgerName From tb_Ledger2001, tblBills2001 Where BillVchrNo = LedgerTrnNo And IsPOBill And "
    "BillTxnID = 4",
    "Insert Into tblItemLed2001(ItemLedTrnNo, ItemLedTrnDate, ItemLedTrnType, ItemLedItemId, ItemLedPONo, "
    "ItemLedItemDesc, "
    "ItemLedTrnIssQty, ItemLedTrnRptQty, ItemLedNote, ItemledUnitPrice, ItemLedBillNo, ItemLandingCost) "
    "Values(1, 36980, "
    "'Receipt', 2, 0, \"d\", 0, 5, \"r\", 12.5, 0,0)",
    "Update ItemMaster2001 Set ReceivedQty = Iif(IsNull(ReceivedQty), 0, ReceivedQty) + 5 Where Item_ID = 2",
    "Select Item_ID, (Open_Stock-IssuedQty+ReceivedQty) As NetQty From ItemMaster2001",
    "Insert into tblBills2001(BillID, BillTxnID, BillVchrNo, ISPoBill, InstrumentID, BillDiscount, "
    "BillTaxRate, "
    "BillOtherCharges) Values (\"b\", 1, 2, False, 0, 0, 0, 0)",
    "Select * From tblPO2001 Where poSupplierID = 5 And poSupplierName = 'x' And  Not poCancelled",
    "Update tblPO2001 Set poCancelled = True Where poNumber = 1",
    "Select max(poNumber) as  High from tblPo2001",
    "Insert Into tblPODet2001 ( PoDetPoNo, PoDetItemID, PoDetItemDesc, PoDetQtyOrder) Values (1, 2, 'd', 5)",
    "Select * From tblPo2001, tblPoDet2001 Where PoNumber = PoDetPoNo And PoNumber = 1",
    "SELECT SUM(ledgerdrAmt) As drVal From  tb_ledger2001 WHERE ledgertxndate < 37000 AND ledgerCode = 5",
    " SELECT  *  From tb_Ledger2001 WHERE ledgercode = 5 And ledgertxnDate >= 36980 And ledgertxnDate <= "
    "37344 Order by  "
    "ledgertxnDate, ledgertrntype Desc ",
    "Select ledgercode,Sum(ledgerDrAmt) as drTot  from tb_Ledger2001 where ledgerTxnDate <= 37000 group by "
    "ledgercode",
    "Update Ledger_Details Set  Closing_Bal = (opening_Bal *-1)+ ledDetDrTxnTot - ledDetCrTxnTot Where "
    "Bal_type = 'C' And "
    "fnncl_yr = 2001",
    "Select name ,'T' as grpType , closing_bal  from ledger_details, Ledger_master where fnncl_yr = 2001 and "
    " "
    "ledger_details.ledger_id = Ledger_master.ledger_id and primarygrp= 'Sales' And closing_bal<>0",
    "Insert Into tblsysTpl (particularDr,AmtDr,particularCr,AmtCr,type) Values (' ',0 , 'Gross Profit "
    "B/F',12.5,'P')",
    "Select * from tblsysTpl where Type ='T'",
    "Delete * from tblsystpl",
};

}  // namespace ado::test
