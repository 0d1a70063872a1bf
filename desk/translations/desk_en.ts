<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
    <context>
        <name>desk::BackupCard</name>
        <message>
            <source>%1-%2: %3 lines, debit %4</source>
            <translation>%1-%2: %3 lines, debit %4</translation>
        </message>
        <message>
            <source>Backup</source>
            <translation>Backup</translation>
        </message>
        <message>
            <source>&amp;Back up…</source>
            <translation>&amp;Back up…</translation>
        </message>
        <message>
            <source>&amp;Verify…</source>
            <translation>&amp;Verify…</translation>
        </message>
        <message>
            <source>&amp;Restore…</source>
            <translation>&amp;Restore…</translation>
        </message>
        <message>
            <source>%1, %2. %3</source>
            <translation>%1, %2. %3</translation>
        </message>
        <message>
            <source>None was made at this desk yet</source>
            <translation>None was made at this desk yet</translation>
        </message>
        <message>
            <source>Back up into a new file</source>
            <translation>Back up into a new file</translation>
        </message>
        <message>
            <source>Backup (*.mdb)</source>
            <translation>Backup (*.mdb)</translation>
        </message>
        <message>
            <source>Backup to verify</source>
            <translation>Backup to verify</translation>
        </message>
        <message>
            <source>Backing up and comparing…</source>
            <translation>Backing up and comparing…</translation>
        </message>
        <message>
            <source>Backed up and compared: %1. %2</source>
            <translation>Backed up and compared: %1. %2</translation>
        </message>
        <message>
            <source>Verifying the backup…</source>
            <translation>Verifying the backup…</translation>
        </message>
        <message>
            <source>%1 is whole, of %2. %3. %4</source>
            <translation>%1 is whole, of %2. %3. %4</translation>
        </message>
        <message>
            <source>It holds what the books hold now.</source>
            <translation>It holds what the books hold now.</translation>
        </message>
        <message>
            <source>The books hold something else by now.</source>
            <translation>The books hold something else by now.</translation>
        </message>
        <message>
            <source>Backup to restore</source>
            <translation>Backup to restore</translation>
        </message>
        <message>
            <source>Restore</source>
            <translation>Restore</translation>
        </message>
        <message>
            <source>Put %1, of %2, in the place of the books in %3?

It holds %4.
The books hold %5. They are set aside under a name with the date.</source>
            <translation>Put %1, of %2, in the place of the books in %3?

It holds %4.
The books hold %5. They are set aside under a name with the date.</translation>
        </message>
        <message>
            <source>Restored from %1.</source>
            <translation>Restored from %1.</translation>
        </message>
        <message>
            <source>What stood there is now %1.</source>
            <translation>What stood there is now %1.</translation>
        </message>
    </context>
    <context>
        <name>desk::BooksCheck</name>
        <message numerus="yes">
            <source>%Ln error(s)</source>
            <translation>
                <numerusform>%Ln error</numerusform>
                <numerusform>%Ln errors</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%Ln note(s)</source>
            <translation>
                <numerusform>%Ln note</numerusform>
                <numerusform>%Ln notes</numerusform>
            </translation>
        </message>
        <message>
            <source>Checking…</source>
            <translation>Checking…</translation>
        </message>
        <message>
            <source>Not checked yet</source>
            <translation>Not checked yet</translation>
        </message>
        <message>
            <source>Nothing to find fault with</source>
            <translation>Nothing to find fault with</translation>
        </message>
        <message>
            <source>%1, at %2</source>
            <translation>%1, at %2</translation>
        </message>
    </context>
    <context>
        <name>desk::BooksExport</name>
        <message>
            <source>Writing the spreadsheets…</source>
            <translation>Writing the spreadsheets…</translation>
        </message>
        <message>
            <source>%1 spreadsheets stand in %2.</source>
            <translation>%1 spreadsheets stand in %2.</translation>
        </message>
        <message>
            <source>Export</source>
            <translation>Export</translation>
        </message>
        <message numerus="yes">
            <source>%Ln spreadsheet(s) of this year would be replaced. Go on?</source>
            <translation>
                <numerusform>%Ln spreadsheet of this year would be replaced. Go on?</numerusform>
                <numerusform>%Ln spreadsheets of this year would be replaced. Go on?</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>desk::BooksPage</name>
        <message>
            <source>Books</source>
            <translation>Books</translation>
        </message>
        <message>
            <source>Check &amp;again</source>
            <translation>Check &amp;again</translation>
        </message>
        <message>
            <source>Years</source>
            <translation>Years</translation>
        </message>
        <message>
            <source>&amp;Years…</source>
            <translation>&amp;Years…</translation>
        </message>
        <message>
            <source>Import</source>
            <translation>Import</translation>
        </message>
        <message>
            <source>&amp;Ledgers…</source>
            <translation>&amp;Ledgers…</translation>
        </message>
        <message>
            <source>&amp;Items…</source>
            <translation>&amp;Items…</translation>
        </message>
        <message>
            <source>&amp;Openings…</source>
            <translation>&amp;Openings…</translation>
        </message>
        <message>
            <source>Export</source>
            <translation>Export</translation>
        </message>
        <message>
            <source>Vouchers, ledgers, parties, trial balance and items as spreadsheets in a folder.</source>
            <translation>Vouchers, ledgers, parties, trial balance and items as spreadsheets in a folder.</translation>
        </message>
        <message>
            <source>&amp;Export…</source>
            <translation>&amp;Export…</translation>
        </message>
        <message>
            <source>Folder for the spreadsheets</source>
            <translation>Folder for the spreadsheets</translation>
        </message>
        <message>
            <source> (current)</source>
            <translation> (current)</translation>
        </message>
        <message>
            <source>A list as comma-separated text, or a journal. It is checked as a whole and shown before anything is written.</source>
            <translation>A list as comma-separated text, or a journal. It is checked as a whole and shown before anything is written.</translation>
        </message>
        <message>
            <source>Vo&amp;uchers…</source>
            <translation>Vo&amp;uchers…</translation>
        </message>
        <message>
            <source>&amp;Journal…</source>
            <translation>&amp;Journal…</translation>
        </message>
        <message>
            <source>Journal (*.journal *.ledger *.dat *.txt);;All files (*)</source>
            <translation>Journal (*.journal *.ledger *.dat *.txt);;All files (*)</translation>
        </message>
        <message>
            <source>Comma-separated text (*.csv *.txt);;All files (*)</source>
            <translation>Comma-separated text (*.csv *.txt);;All files (*)</translation>
        </message>
        <message>
            <source>File to import</source>
            <translation>File to import</translation>
        </message>
    </context>
    <context>
        <name>desk::ChartCard</name>
        <message>
            <source>The same figures as a table (Ctrl+T)</source>
            <translation>The same figures as a table (Ctrl+T)</translation>
        </message>
        <message>
            <source>Table</source>
            <translation>Table</translation>
        </message>
        <message>
            <source>Chart</source>
            <translation>Chart</translation>
        </message>
    </context>
    <context>
        <name>desk::ChartView</name>
        <message>
            <source>%1, %2: %3</source>
            <translation>%1, %2: %3</translation>
        </message>
        <message>
            <source>No figures yet. Vouchers bring them: F2.</source>
            <translation>No figures yet. Vouchers bring them: F2.</translation>
        </message>
    </context>
    <context>
        <name>desk::CheckCard</name>
        <message>
            <source>Check of the books</source>
            <translation>Check of the books</translation>
        </message>
        <message>
            <source>&amp;Findings</source>
            <translation>&amp;Findings</translation>
        </message>
    </context>
    <context>
        <name>desk::Commands</name>
        <message>
            <source>Colours of the system</source>
            <translation>Colours of the system</translation>
        </message>
        <message>
            <source>Light colours</source>
            <translation>Light colours</translation>
        </message>
        <message>
            <source>Dark colours</source>
            <translation>Dark colours</translation>
        </message>
    </context>
    <context>
        <name>desk::Cure</name>
        <message>
            <source>Why: %1. What to do: %2.</source>
            <translation>Why: %1. What to do: %2.</translation>
        </message>
    </context>
    <context>
        <name>desk::Dates</name>
        <message>
            <source>%1 to %2</source>
            <translation>%1 to %2</translation>
        </message>
    </context>
    <context>
        <name>desk::DayChip</name>
        <message>
            <source>As o&amp;f</source>
            <translation>As o&amp;f</translation>
        </message>
        <message>
            <source>&amp;Today, or the year's last day</source>
            <translation>&amp;Today, or the year's last day</translation>
        </message>
        <message>
            <source>Day</source>
            <translation>Day</translation>
        </message>
        <message>
            <source>Show this day</source>
            <translation>Show this day</translation>
        </message>
    </context>
    <context>
        <name>desk::DeskHead</name>
        <message>
            <source>Financial year</source>
            <translation>Financial year</translation>
        </message>
        <message>
            <source>Financial year (Ctrl+Y)</source>
            <translation>Financial year (Ctrl+Y)</translation>
        </message>
        <message>
            <source>Menu</source>
            <translation>Menu</translation>
        </message>
        <message>
            <source>Menu (Alt+M)</source>
            <translation>Menu (Alt+M)</translation>
        </message>
        <message>
            <source>No books are open</source>
            <translation>No books are open</translation>
        </message>
    </context>
    <context>
        <name>desk::DeskWindow</name>
        <message>
            <source>Accounts</source>
            <translation>Accounts</translation>
        </message>
        <message>
            <source>No books are open</source>
            <translation>No books are open</translation>
        </message>
        <message>
            <source>Open the folder in which the books stand, or lay new ones down with qmhost create.</source>
            <translation>Open the folder in which the books stand, or lay new ones down with qmhost create.</translation>
        </message>
        <message>
            <source>Open a folder…</source>
            <translation>Open a folder…</translation>
        </message>
        <message>
            <source>Folder of the books</source>
            <translation>Folder of the books</translation>
        </message>
        <message>
            <source>%1 – Accounts</source>
            <translation>%1 – Accounts</translation>
        </message>
        <message>
            <source>The books can be read again.</source>
            <translation>The books can be read again.</translation>
        </message>
        <message>
            <source>Open what stands there</source>
            <translation>Open what stands there</translation>
        </message>
        <message>
            <source>The books are being put in their place…</source>
            <translation>The books are being put in their place…</translation>
        </message>
        <message>
            <source>Bring up to date</source>
            <translation>Bring up to date</translation>
        </message>
        <message>
            <source>Manual</source>
            <translation>Manual</translation>
        </message>
        <message>
            <source>Keys of this page</source>
            <translation>Keys of this page</translation>
        </message>
        <message>
            <source>Leave</source>
            <translation>Leave</translation>
        </message>
        <message>
            <source>Open the books again</source>
            <translation>Open the books again</translation>
        </message>
    </context>
    <context>
        <name>desk::Finder</name>
        <message>
            <source>Page</source>
            <translation>Page</translation>
        </message>
        <message>
            <source>Screen</source>
            <translation>Screen</translation>
        </message>
        <message>
            <source>Voucher</source>
            <translation>Voucher</translation>
        </message>
        <message>
            <source>Ledger</source>
            <translation>Ledger</translation>
        </message>
        <message>
            <source>Item</source>
            <translation>Item</translation>
        </message>
        <message>
            <source>Bill</source>
            <translation>Bill</translation>
        </message>
        <message>
            <source>Order</source>
            <translation>Order</translation>
        </message>
    </context>
    <context>
        <name>desk::FindingPlace</name>
        <message>
            <source>Error log</source>
            <translation>Error log</translation>
        </message>
        <message>
            <source>Nothing was logged</source>
            <translation>Nothing was logged</translation>
        </message>
        <message>
            <source>Backups</source>
            <translation>Backups</translation>
        </message>
        <message>
            <source>Set Financial Year</source>
            <translation>Set Financial Year</translation>
        </message>
        <message>
            <source>Group Master</source>
            <translation>Group Master</translation>
        </message>
        <message>
            <source>Ledger %1</source>
            <translation>Ledger %1</translation>
        </message>
        <message>
            <source>Lines of ledger %1</source>
            <translation>Lines of ledger %1</translation>
        </message>
        <message>
            <source>Vouchers</source>
            <translation>Vouchers</translation>
        </message>
        <message>
            <source>Voucher %1</source>
            <translation>Voucher %1</translation>
        </message>
        <message>
            <source>Receipt %1</source>
            <translation>Receipt %1</translation>
        </message>
        <message>
            <source>Issue %1</source>
            <translation>Issue %1</translation>
        </message>
        <message>
            <source>Order %1</source>
            <translation>Order %1</translation>
        </message>
        <message>
            <source>Orders</source>
            <translation>Orders</translation>
        </message>
        <message>
            <source>Item %1</source>
            <translation>Item %1</translation>
        </message>
        <message>
            <source>Items</source>
            <translation>Items</translation>
        </message>
        <message>
            <source>Movements</source>
            <translation>Movements</translation>
        </message>
        <message>
            <source>Bills</source>
            <translation>Bills</translation>
        </message>
        <message>
            <source>%1 of %2</source>
            <translation>%1 of %2</translation>
        </message>
    </context>
    <context>
        <name>desk::FindingsPage</name>
        <message>
            <source>Check of the books</source>
            <translation>Check of the books</translation>
        </message>
        <message>
            <source>%1; checked %2</source>
            <translation>%1; checked %2</translation>
        </message>
        <message>
            <source>Nothing was found</source>
            <translation>Nothing was found</translation>
        </message>
        <message>
            <source>Pages, ledgers, vouchers, stock and bills agree with each other.</source>
            <translation>Pages, ledgers, vouchers, stock and bills agree with each other.</translation>
        </message>
        <message>
            <source>Why, and what to do</source>
            <translation>Why, and what to do</translation>
        </message>
        <message>
            <source>Check again</source>
            <translation>Check again</translation>
        </message>
        <message>
            <source>No page and no screen shows this. What to do stands below.</source>
            <translation>No page and no screen shows this. What to do stands below.</translation>
        </message>
    </context>
    <context>
        <name>desk::HandOver</name>
        <message>
            <source>Copy the chosen rows	Ctrl+C</source>
            <translation>Copy the chosen rows	Ctrl+C</translation>
        </message>
        <message>
            <source>Print…	Ctrl+P</source>
            <translation>Print…	Ctrl+P</translation>
        </message>
        <message>
            <source>&amp;Spreadsheet…</source>
            <translation>&amp;Spreadsheet…</translation>
        </message>
        <message>
            <source>&amp;PDF file…</source>
            <translation>&amp;PDF file…</translation>
        </message>
        <message>
            <source>&amp;CSV file…</source>
            <translation>&amp;CSV file…</translation>
        </message>
        <message>
            <source>Write to</source>
            <translation>Write to</translation>
        </message>
        <message>
            <source>Writing %1…</source>
            <translation>Writing %1…</translation>
        </message>
        <message>
            <source>Written: %1</source>
            <translation>Written: %1</translation>
        </message>
        <message>
            <source>%1 stands there already. Is it to be replaced?</source>
            <translation>%1 stands there already. Is it to be replaced?</translation>
        </message>
    </context>
    <context>
        <name>desk::Heads</name>
        <message>
            <source>31 to 60</source>
            <translation>31 to 60</translation>
        </message>
        <message>
            <source>61 to 90</source>
            <translation>61 to 90</translation>
        </message>
        <message>
            <source>Age in Days</source>
            <translation>Age in Days</translation>
        </message>
        <message>
            <source>Assets</source>
            <translation>Assets</translation>
        </message>
        <message>
            <source>Balance</source>
            <translation>Balance</translation>
        </message>
        <message>
            <source>Bank</source>
            <translation>Bank</translation>
        </message>
        <message>
            <source>Bank In</source>
            <translation>Bank In</translation>
        </message>
        <message>
            <source>Bank Out</source>
            <translation>Bank Out</translation>
        </message>
        <message>
            <source>Bill</source>
            <translation>Bill</translation>
        </message>
        <message>
            <source>By Movements</source>
            <translation>By Movements</translation>
        </message>
        <message>
            <source>Cancelled</source>
            <translation>Cancelled</translation>
        </message>
        <message>
            <source>Cash</source>
            <translation>Cash</translation>
        </message>
        <message>
            <source>Cash In</source>
            <translation>Cash In</translation>
        </message>
        <message>
            <source>Cash Out</source>
            <translation>Cash Out</translation>
        </message>
        <message>
            <source>Closing</source>
            <translation>Closing</translation>
        </message>
        <message>
            <source>Closing Credit</source>
            <translation>Closing Credit</translation>
        </message>
        <message>
            <source>Closing Debit</source>
            <translation>Closing Debit</translation>
        </message>
        <message>
            <source>Column</source>
            <translation>Column</translation>
        </message>
        <message>
            <source>Credit</source>
            <translation>Credit</translation>
        </message>
        <message>
            <source>Credit / Liabilities</source>
            <translation>Credit / Liabilities</translation>
        </message>
        <message>
            <source>Date</source>
            <translation>Date</translation>
        </message>
        <message>
            <source>Debit</source>
            <translation>Debit</translation>
        </message>
        <message>
            <source>Debit / Assets</source>
            <translation>Debit / Assets</translation>
        </message>
        <message>
            <source>Debited To</source>
            <translation>Debited To</translation>
        </message>
        <message>
            <source>Deleted</source>
            <translation>Deleted</translation>
        </message>
        <message>
            <source>Description</source>
            <translation>Description</translation>
        </message>
        <message>
            <source>Discount %</source>
            <translation>Discount %</translation>
        </message>
        <message>
            <source>Form</source>
            <translation>Form</translation>
        </message>
        <message>
            <source>From</source>
            <translation>From</translation>
        </message>
        <message>
            <source>Goods</source>
            <translation>Goods</translation>
        </message>
        <message>
            <source>Group</source>
            <translation>Group</translation>
        </message>
        <message>
            <source>Group or Ledger</source>
            <translation>Group or Ledger</translation>
        </message>
        <message>
            <source>Issued</source>
            <translation>Issued</translation>
        </message>
        <message>
            <source>Item</source>
            <translation>Item</translation>
        </message>
        <message>
            <source>Landing Cost</source>
            <translation>Landing Cost</translation>
        </message>
        <message>
            <source>Ledger</source>
            <translation>Ledger</translation>
        </message>
        <message>
            <source>Liabilities</source>
            <translation>Liabilities</translation>
        </message>
        <message>
            <source>Line</source>
            <translation>Line</translation>
        </message>
        <message>
            <source>Name</source>
            <translation>Name</translation>
        </message>
        <message>
            <source>Narration</source>
            <translation>Narration</translation>
        </message>
        <message>
            <source>Net Stock</source>
            <translation>Net Stock</translation>
        </message>
        <message>
            <source>Note</source>
            <translation>Note</translation>
        </message>
        <message>
            <source>Number</source>
            <translation>Number</translation>
        </message>
        <message>
            <source>Opening</source>
            <translation>Opening</translation>
        </message>
        <message>
            <source>Order</source>
            <translation>Order</translation>
        </message>
        <message>
            <source>Ordered</source>
            <translation>Ordered</translation>
        </message>
        <message>
            <source>Other Charges</source>
            <translation>Other Charges</translation>
        </message>
        <message>
            <source>Outstanding</source>
            <translation>Outstanding</translation>
        </message>
        <message>
            <source>Over 90</source>
            <translation>Over 90</translation>
        </message>
        <message>
            <source>Owed to Us</source>
            <translation>Owed to Us</translation>
        </message>
        <message>
            <source>Particulars</source>
            <translation>Particulars</translation>
        </message>
        <message>
            <source>Party</source>
            <translation>Party</translation>
        </message>
        <message>
            <source>Payments</source>
            <translation>Payments</translation>
        </message>
        <message>
            <source>Posted</source>
            <translation>Posted</translation>
        </message>
        <message>
            <source>Purchases</source>
            <translation>Purchases</translation>
        </message>
        <message>
            <source>Receipt</source>
            <translation>Receipt</translation>
        </message>
        <message>
            <source>Receipts</source>
            <translation>Receipts</translation>
        </message>
        <message>
            <source>Received</source>
            <translation>Received</translation>
        </message>
        <message>
            <source>Reorder</source>
            <translation>Reorder</translation>
        </message>
        <message>
            <source>Reorder Level</source>
            <translation>Reorder Level</translation>
        </message>
        <message>
            <source>Sales</source>
            <translation>Sales</translation>
        </message>
        <message>
            <source>Severity</source>
            <translation>Severity</translation>
        </message>
        <message>
            <source>Source</source>
            <translation>Source</translation>
        </message>
        <message>
            <source>Supplier</source>
            <translation>Supplier</translation>
        </message>
        <message>
            <source>Tax %</source>
            <translation>Tax %</translation>
        </message>
        <message>
            <source>Terms</source>
            <translation>Terms</translation>
        </message>
        <message>
            <source>Time</source>
            <translation>Time</translation>
        </message>
        <message>
            <source>Type</source>
            <translation>Type</translation>
        </message>
        <message>
            <source>Unit</source>
            <translation>Unit</translation>
        </message>
        <message>
            <source>Unit Price</source>
            <translation>Unit Price</translation>
        </message>
        <message>
            <source>Up to</source>
            <translation>Up to</translation>
        </message>
        <message>
            <source>Up to 30 Days</source>
            <translation>Up to 30 Days</translation>
        </message>
        <message>
            <source>Voucher</source>
            <translation>Voucher</translation>
        </message>
        <message>
            <source>We Owe</source>
            <translation>We Owe</translation>
        </message>
        <message>
            <source>What is wrong</source>
            <translation>What is wrong</translation>
        </message>
        <message>
            <source>What was found</source>
            <translation>What was found</translation>
        </message>
        <message>
            <source>Worth</source>
            <translation>Worth</translation>
        </message>
        <message>
            <source>Leads to</source>
            <translation>Leads to</translation>
        </message>
        <message>
            <source>Overflow Level</source>
            <translation>Overflow Level</translation>
        </message>
    </context>
    <context>
        <name>desk::HelpPage</name>
        <message>
            <source>Manual</source>
            <translation>Manual</translation>
        </message>
        <message>
            <source>Find   Ctrl+F</source>
            <translation>Find   Ctrl+F</translation>
        </message>
        <message>
            <source>Find in the manual</source>
            <translation>Find in the manual</translation>
        </message>
    </context>
    <context>
        <name>desk::ImportPage</name>
        <message>
            <source>Import of %1</source>
            <translation>Import of %1</translation>
        </message>
        <message>
            <source>%1, no fault</source>
            <translation>%1, no fault</translation>
        </message>
        <message>
            <source>All of it is written at once, or nothing, into %1.</source>
            <translation>All of it is written at once, or nothing, into %1.</translation>
        </message>
        <message>
            <source>&amp;Import</source>
            <translation>&amp;Import</translation>
        </message>
        <message>
            <source>Imported: %1.</source>
            <translation>Imported: %1.</translation>
        </message>
        <message>
            <source>What is wrong</source>
            <translation>What is wrong</translation>
        </message>
        <message>
            <source>Checking %1…</source>
            <translation>Checking %1…</translation>
        </message>
        <message>
            <source>Cancelled. Nothing of %1 was imported.</source>
            <translation>Cancelled. Nothing of %1 was imported.</translation>
        </message>
        <message>
            <source>But %1.</source>
            <translation>But %1.</translation>
        </message>
        <message>
            <source>&amp;Import once more</source>
            <translation>&amp;Import once more</translation>
        </message>
        <message>
            <source>Nothing was imported. Enter on a fault shows its row. Mend the file and check it again.</source>
            <translation>Nothing was imported. Enter on a fault shows its row. Mend the file and check it again.</translation>
        </message>
        <message>
            <source>&amp;Check again</source>
            <translation>&amp;Check again</translation>
        </message>
        <message>
            <source>Read &amp;month first</source>
            <translation>Read &amp;month first</translation>
        </message>
        <message>
            <source>Read &amp;day first</source>
            <translation>Read &amp;day first</translation>
        </message>
        <message>
            <source>Ma&amp;p of accounts…</source>
            <translation>Ma&amp;p of accounts…</translation>
        </message>
        <message>
            <source>, of which the first %1 are shown</source>
            <translation>, of which the first %1 are shown</translation>
        </message>
        <message>
            <source>No row could be read</source>
            <translation>No row could be read</translation>
        </message>
        <message>
            <source>The fault says where the reading stopped.</source>
            <translation>The fault says where the reading stopped.</translation>
        </message>
        <message>
            <source>Rows of the file</source>
            <translation>Rows of the file</translation>
        </message>
        <message>
            <source>Line %1 is none of the rows: it names the columns.</source>
            <translation>Line %1 is none of the rows: it names the columns.</translation>
        </message>
        <message>
            <source>List with the columns account and ledger</source>
            <translation>List with the columns account and ledger</translation>
        </message>
        <message>
            <source>Comma-separated text (*.csv)</source>
            <translation>Comma-separated text (*.csv)</translation>
        </message>
        <message>
            <source>Importing %1…</source>
            <translation>Importing %1…</translation>
        </message>
        <message numerus="yes">
            <source>%Ln fault(s)</source>
            <translation>
                <numerusform>%Ln fault</numerusform>
                <numerusform>%Ln faults</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%Ln row(s) in the file</source>
            <translation>
                <numerusform>%Ln row in the file</numerusform>
                <numerusform>%Ln rows in the file</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>desk::ItemPage</name>
        <message>
            <source>Receipts and issues, with the stock behind each</source>
            <translation>Receipts and issues, with the stock behind each</translation>
        </message>
        <message>
            <source>This item has not moved in this year</source>
            <translation>This item has not moved in this year</translation>
        </message>
        <message>
            <source>F6 enters a receipt of goods, F7 an issue.</source>
            <translation>F6 enters a receipt of goods, F7 an issue.</translation>
        </message>
        <message>
            <source>Change</source>
            <translation>Change</translation>
        </message>
    </context>
    <context>
        <name>desk::JobBar</name>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
    </context>
    <context>
        <name>desk::KeyList</name>
        <message>
            <source>Keys: %1</source>
            <translation>Keys: %1</translation>
        </message>
        <message>
            <source>Key</source>
            <translation>Key</translation>
        </message>
        <message>
            <source>Does</source>
            <translation>Does</translation>
        </message>
        <message>
            <source>Opens what the line or the figure is made of</source>
            <translation>Opens what the line or the figure is made of</translation>
        </message>
        <message>
            <source>Back, to the same line</source>
            <translation>Back, to the same line</translation>
        </message>
        <message>
            <source>Search everything</source>
            <translation>Search everything</translation>
        </message>
        <message>
            <source>Hand over: spreadsheet, PDF, CSV, copy</source>
            <translation>Hand over: spreadsheet, PDF, CSV, copy</translation>
        </message>
        <message>
            <source>A chart as a table, and back</source>
            <translation>A chart as a table, and back</translation>
        </message>
        <message>
            <source>The financial year</source>
            <translation>The financial year</translation>
        </message>
        <message>
            <source>Open other books</source>
            <translation>Open other books</translation>
        </message>
        <message>
            <source>Bring up to date</source>
            <translation>Bring up to date</translation>
        </message>
        <message>
            <source>The manual, at this page's chapter</source>
            <translation>The manual, at this page's chapter</translation>
        </message>
        <message>
            <source>Leave</source>
            <translation>Leave</translation>
        </message>
        <message>
            <source>To the answers of a message</source>
            <translation>To the answers of a message</translation>
        </message>
    </context>
    <context>
        <name>desk::LedgersPage</name>
        <message>
            <source>Ledgers</source>
            <translation>Ledgers</translation>
        </message>
        <message>
            <source>%1; balances are in debit, with a minus in credit</source>
            <translation>%1; balances are in debit, with a minus in credit</translation>
        </message>
        <message>
            <source>There are no ledgers yet</source>
            <translation>There are no ledgers yet</translation>
        </message>
        <message>
            <source>The Ledger Master adds them: F4.</source>
            <translation>The Ledger Master adds them: F4.</translation>
        </message>
        <message>
            <source>New</source>
            <translation>New</translation>
        </message>
        <message>
            <source>Change</source>
            <translation>Change</translation>
        </message>
    </context>
    <context>
        <name>desk::NoticeBar</name>
        <message>
            <source>Close the message</source>
            <translation>Close the message</translation>
        </message>
        <message>
            <source>Close the message (Esc)</source>
            <translation>Close the message (Esc)</translation>
        </message>
        <message>
            <source>Alt+0 goes to the answers</source>
            <translation>Alt+0 goes to the answers</translation>
        </message>
    </context>
    <context>
        <name>desk::OtherBooks</name>
        <message>
            <source>Other books</source>
            <translation>Other books</translation>
        </message>
        <message>
            <source>Enter on a line below opens books that were open before.</source>
            <translation>Enter on a line below opens books that were open before.</translation>
        </message>
        <message>
            <source>&amp;New books…</source>
            <translation>&amp;New books…</translation>
        </message>
        <message>
            <source>O&amp;pen a folder…</source>
            <translation>O&amp;pen a folder…</translation>
        </message>
        <message>
            <source>On a server</source>
            <translation>On a server</translation>
        </message>
        <message>
            <source>For several people at once. Who may do what there is set by the server's administrator.</source>
            <translation>For several people at once. Who may do what there is set by the server's administrator.</translation>
        </message>
        <message>
            <source>Ne&amp;w there…</source>
            <translation>Ne&amp;w there…</translation>
        </message>
        <message>
            <source>Open on a &amp;server…</source>
            <translation>Open on a &amp;server…</translation>
        </message>
        <message>
            <source>&amp;Copy into a folder…</source>
            <translation>&amp;Copy into a folder…</translation>
        </message>
        <message>
            <source>&amp;Copy these there…</source>
            <translation>&amp;Copy these there…</translation>
        </message>
        <message>
            <source>Books that were open before</source>
            <translation>Books that were open before</translation>
        </message>
        <message>
            <source>Their address: postgresql://server/books</source>
            <translation>Their address: postgresql://server/books</translation>
        </message>
        <message>
            <source>New books</source>
            <translation>New books</translation>
        </message>
        <message>
            <source>First financial year begins on 1 April</source>
            <translation>First financial year begins on 1 April</translation>
        </message>
        <message>
            <source>Folder for the new books</source>
            <translation>Folder for the new books</translation>
        </message>
        <message>
            <source>New books for %1-%2 stand in %3.</source>
            <translation>New books for %1-%2 stand in %3.</translation>
        </message>
        <message>
            <source>New books on a server</source>
            <translation>New books on a server</translation>
        </message>
        <message>
            <source>New books are being laid down…</source>
            <translation>New books are being laid down…</translation>
        </message>
        <message>
            <source>Books on a server</source>
            <translation>Books on a server</translation>
        </message>
        <message>
            <source>Folder for the copy</source>
            <translation>Folder for the copy</translation>
        </message>
        <message>
            <source>Copy of these books on a server</source>
            <translation>Copy of these books on a server</translation>
        </message>
        <message>
            <source>Copying and comparing…</source>
            <translation>Copying and comparing…</translation>
        </message>
        <message>
            <source>Copied and compared: %1. This window still works in %2; the list below opens the copy.</source>
            <translation>Copied and compared: %1. This window still works in %2; the list below opens the copy.</translation>
        </message>
    </context>
    <context>
        <name>desk::OverviewFigures</name>
        <message>
            <source>Up to 30 days</source>
            <translation>Up to 30 days</translation>
        </message>
        <message>
            <source>31 to 60</source>
            <translation>31 to 60</translation>
        </message>
        <message>
            <source>61 to 90</source>
            <translation>61 to 90</translation>
        </message>
        <message>
            <source>Over 90</source>
            <translation>Over 90</translation>
        </message>
        <message>
            <source>Cash</source>
            <translation>Cash</translation>
        </message>
        <message>
            <source>Bank</source>
            <translation>Bank</translation>
        </message>
        <message>
            <source>Sales</source>
            <translation>Sales</translation>
        </message>
        <message>
            <source>Purchases</source>
            <translation>Purchases</translation>
        </message>
        <message>
            <source>Receipts</source>
            <translation>Receipts</translation>
        </message>
        <message>
            <source>Payments</source>
            <translation>Payments</translation>
        </message>
        <message>
            <source>Owed to us</source>
            <translation>Owed to us</translation>
        </message>
        <message>
            <source>We owe</source>
            <translation>We owe</translation>
        </message>
        <message>
            <source>The largest parties</source>
            <translation>The largest parties</translation>
        </message>
        <message>
            <source>Items to reorder</source>
            <translation>Items to reorder</translation>
        </message>
        <message>
            <source>Sales and purchases</source>
            <translation>Sales and purchases</translation>
        </message>
        <message>
            <source>Receipts and payments</source>
            <translation>Receipts and payments</translation>
        </message>
    </context>
    <context>
        <name>desk::OverviewPage</name>
        <message>
            <source>Overview</source>
            <translation>Overview</translation>
        </message>
        <message>
            <source>Check &amp;now</source>
            <translation>Check &amp;now</translation>
        </message>
        <message>
            <source>Last backup</source>
            <translation>Last backup</translation>
        </message>
        <message>
            <source>&amp;Back up…</source>
            <translation>&amp;Back up…</translation>
        </message>
        <message>
            <source>Cash and bank</source>
            <translation>Cash and bank</translation>
        </message>
        <message>
            <source>Sales and purchases</source>
            <translation>Sales and purchases</translation>
        </message>
        <message>
            <source>Receipts and payments</source>
            <translation>Receipts and payments</translation>
        </message>
        <message>
            <source>Owed and owing by age</source>
            <translation>Owed and owing by age</translation>
        </message>
        <message>
            <source>The largest parties</source>
            <translation>The largest parties</translation>
        </message>
        <message>
            <source>&amp;Parties</source>
            <translation>&amp;Parties</translation>
        </message>
        <message>
            <source>Nobody owes, and nothing is owed</source>
            <translation>Nobody owes, and nothing is owed</translation>
        </message>
        <message>
            <source>Items to reorder</source>
            <translation>Items to reorder</translation>
        </message>
        <message>
            <source>&amp;Items</source>
            <translation>&amp;Items</translation>
        </message>
        <message>
            <source>Nothing is short</source>
            <translation>Nothing is short</translation>
        </message>
        <message>
            <source>Every item stands above its reorder level.</source>
            <translation>Every item stands above its reorder level.</translation>
        </message>
        <message>
            <source>Adding up the year…</source>
            <translation>Adding up the year…</translation>
        </message>
        <message>
            <source>None was made at this desk yet</source>
            <translation>None was made at this desk yet</translation>
        </message>
        <message>
            <source>%1, %2</source>
            <translation>%1, %2</translation>
        </message>
    </context>
    <context>
        <name>desk::PageList</name>
        <message>
            <source>Pages</source>
            <translation>Pages</translation>
        </message>
    </context>
    <context>
        <name>desk::PageTable</name>
        <message>
            <source>Overview</source>
            <translation>Overview</translation>
        </message>
        <message>
            <source>Vouchers</source>
            <translation>Vouchers</translation>
        </message>
        <message>
            <source>Ledgers</source>
            <translation>Ledgers</translation>
        </message>
        <message>
            <source>Results</source>
            <translation>Results</translation>
        </message>
        <message>
            <source>Parties</source>
            <translation>Parties</translation>
        </message>
        <message>
            <source>Stock</source>
            <translation>Stock</translation>
        </message>
        <message>
            <source>Books</source>
            <translation>Books</translation>
        </message>
        <message>
            <source>Screens</source>
            <translation>Screens</translation>
        </message>
    </context>
    <context>
        <name>desk::PartiesPage</name>
        <message>
            <source>Parties</source>
            <translation>Parties</translation>
        </message>
        <message>
            <source>Change</source>
            <translation>Change</translation>
        </message>
        <message>
            <source>&amp;Any age</source>
            <translation>&amp;Any age</translation>
        </message>
        <message>
            <source>Older than &amp;30 days</source>
            <translation>Older than &amp;30 days</translation>
        </message>
        <message>
            <source>Older than &amp;60 days</source>
            <translation>Older than &amp;60 days</translation>
        </message>
        <message>
            <source>Older than &amp;90 days</source>
            <translation>Older than &amp;90 days</translation>
        </message>
        <message>
            <source>The&amp;y owe us</source>
            <translation>The&amp;y owe us</translation>
        </message>
        <message>
            <source>&amp;We owe them</source>
            <translation>&amp;We owe them</translation>
        </message>
        <message>
            <source>&amp;Both</source>
            <translation>&amp;Both</translation>
        </message>
        <message>
            <source>As of %1</source>
            <translation>As of %1</translation>
        </message>
        <message>
            <source>As of %1; a minus is what we owe</source>
            <translation>As of %1; a minus is what we owe</translation>
        </message>
        <message>
            <source>Nobody has a balance here</source>
            <translation>Nobody has a balance here</translation>
        </message>
        <message>
            <source>Parties are ledgers of Debtors and Suppliers: F4 adds them.</source>
            <translation>Parties are ledgers of Debtors and Suppliers: F4 adds them.</translation>
        </message>
        <message>
            <source>H&amp;ow old</source>
            <translation>H&amp;ow old</translation>
        </message>
        <message>
            <source>&amp;Up to 30 days</source>
            <translation>&amp;Up to 30 days</translation>
        </message>
        <message>
            <source>31 &amp;to 60 days</source>
            <translation>31 &amp;to 60 days</translation>
        </message>
        <message>
            <source>61 to 90 &amp;days</source>
            <translation>61 to 90 &amp;days</translation>
        </message>
        <message>
            <source>Nothing is of that age</source>
            <translation>Nothing is of that age</translation>
        </message>
        <message>
            <source>No balance has a part of the age that is asked for. Alt+O chooses another.</source>
            <translation>No balance has a part of the age that is asked for. Alt+O chooses another.</translation>
        </message>
    </context>
    <context>
        <name>desk::PeriodChip</name>
        <message>
            <source>&amp;Period</source>
            <translation>&amp;Period</translation>
        </message>
        <message>
            <source>From</source>
            <translation>From</translation>
        </message>
        <message>
            <source>Up to</source>
            <translation>Up to</translation>
        </message>
        <message>
            <source>Show these days</source>
            <translation>Show these days</translation>
        </message>
        <message>
            <source>&amp;Whole year</source>
            <translation>&amp;Whole year</translation>
        </message>
    </context>
    <context>
        <name>desk::ResultsPage</name>
        <message>
            <source>Results</source>
            <translation>Results</translation>
        </message>
        <message>
            <source>Print the report</source>
            <translation>Print the report</translation>
        </message>
        <message>
            <source>Be&amp;side</source>
            <translation>Be&amp;side</translation>
        </message>
        <message>
            <source>&amp;One figure</source>
            <translation>&amp;One figure</translation>
        </message>
        <message>
            <source>Beside &amp;last year</source>
            <translation>Beside &amp;last year</translation>
        </message>
        <message>
            <source>By &amp;month</source>
            <translation>By &amp;month</translation>
        </message>
        <message>
            <source>Fi&amp;gures</source>
            <translation>Fi&amp;gures</translation>
        </message>
        <message>
            <source>As the &amp;report has them</source>
            <translation>As the &amp;report has them</translation>
        </message>
        <message>
            <source>By the &amp;vouchers</source>
            <translation>By the &amp;vouchers</translation>
        </message>
        <message>
            <source>&amp;Trial balance</source>
            <translation>&amp;Trial balance</translation>
        </message>
        <message>
            <source>T&amp;rading</source>
            <translation>T&amp;rading</translation>
        </message>
        <message>
            <source>Pro&amp;fit and loss</source>
            <translation>Pro&amp;fit and loss</translation>
        </message>
        <message>
            <source>&amp;Balance sheet</source>
            <translation>&amp;Balance sheet</translation>
        </message>
        <message>
            <source>Nothing was posted in these days</source>
            <translation>Nothing was posted in these days</translation>
        </message>
        <message>
            <source>Another period may have figures: Alt+P. Vouchers are entered with F2.</source>
            <translation>Another period may have figures: Alt+P. Vouchers are entered with F2.</translation>
        </message>
        <message>
            <source>As of %1</source>
            <translation>As of %1</translation>
        </message>
        <message>
            <source>; closing balances, with a minus in credit</source>
            <translation>; closing balances, with a minus in credit</translation>
        </message>
        <message>
            <source>; assets, with a minus for liabilities</source>
            <translation>; assets, with a minus for liabilities</translation>
        </message>
        <message>
            <source>; income and profit, with a minus for costs and loss</source>
            <translation>; income and profit, with a minus for costs and loss</translation>
        </message>
        <message>
            <source>; balances are in debit, with a minus in credit</source>
            <translation>; balances are in debit, with a minus in credit</translation>
        </message>
    </context>
    <context>
        <name>desk::ScreenList</name>
        <message>
            <source>Transactions</source>
            <translation>Transactions</translation>
        </message>
        <message>
            <source>Voucher Entry</source>
            <translation>Voucher Entry</translation>
        </message>
        <message>
            <source>Receipts, payments, contras and journals</source>
            <translation>Receipts, payments, contras and journals</translation>
        </message>
        <message>
            <source>Day Book</source>
            <translation>Day Book</translation>
        </message>
        <message>
            <source>The lines of a day or of a filter; change and delete vouchers</source>
            <translation>The lines of a day or of a filter; change and delete vouchers</translation>
        </message>
        <message>
            <source>Masters</source>
            <translation>Masters</translation>
        </message>
        <message>
            <source>Ledger Master</source>
            <translation>Ledger Master</translation>
        </message>
        <message>
            <source>Ledgers, their openings, and the addresses of parties</source>
            <translation>Ledgers, their openings, and the addresses of parties</translation>
        </message>
        <message>
            <source>Group Master</source>
            <translation>Group Master</translation>
        </message>
        <message>
            <source>The tree of groups and ledgers, with the lines of each</source>
            <translation>The tree of groups and ledgers, with the lines of each</translation>
        </message>
        <message>
            <source>Set Financial Year</source>
            <translation>Set Financial Year</translation>
        </message>
        <message>
            <source>Choose the year; add the next</source>
            <translation>Choose the year; add the next</translation>
        </message>
        <message>
            <source>Stock</source>
            <translation>Stock</translation>
        </message>
        <message>
            <source>Receipt</source>
            <translation>Receipt</translation>
        </message>
        <message>
            <source>Goods that came in, with their bill</source>
            <translation>Goods that came in, with their bill</translation>
        </message>
        <message>
            <source>Issues</source>
            <translation>Issues</translation>
        </message>
        <message>
            <source>Purchase Order</source>
            <translation>Purchase Order</translation>
        </message>
        <message>
            <source>Orders to suppliers, and receipts against them</source>
            <translation>Orders to suppliers, and receipts against them</translation>
        </message>
        <message>
            <source>Item Master</source>
            <translation>Item Master</translation>
        </message>
        <message>
            <source>Items with their units, rates and balances</source>
            <translation>Items with their units, rates and balances</translation>
        </message>
        <message>
            <source>Item Ledger</source>
            <translation>Item Ledger</translation>
        </message>
        <message>
            <source>The movements of items, printed</source>
            <translation>The movements of items, printed</translation>
        </message>
        <message>
            <source>Reports</source>
            <translation>Reports</translation>
        </message>
        <message>
            <source>Final Results</source>
            <translation>Final Results</translation>
        </message>
        <message>
            <source>Trading, profit and loss, and balance sheet, printed</source>
            <translation>Trading, profit and loss, and balance sheet, printed</translation>
        </message>
        <message>
            <source>Ledger</source>
            <translation>Ledger</translation>
        </message>
        <message>
            <source>Statements and trial balance, printed</source>
            <translation>Statements and trial balance, printed</translation>
        </message>
        <message>
            <source>Goods that went out</source>
            <translation>Goods that went out</translation>
        </message>
    </context>
    <context>
        <name>desk::ScreensPage</name>
        <message>
            <source>Screens</source>
            <translation>Screens</translation>
        </message>
        <message>
            <source>Enter opens a screen; its key opens it from any page</source>
            <translation>Enter opens a screen; its key opens it from any page</translation>
        </message>
        <message>
            <source>Screen</source>
            <translation>Screen</translation>
        </message>
        <message>
            <source>For</source>
            <translation>For</translation>
        </message>
        <message>
            <source>Key</source>
            <translation>Key</translation>
        </message>
    </context>
    <context>
        <name>desk::SearchField</name>
        <message>
            <source>Search   Ctrl+K</source>
            <translation>Search   Ctrl+K</translation>
        </message>
        <message>
            <source>Search</source>
            <translation>Search</translation>
        </message>
        <message>
            <source>Search results</source>
            <translation>Search results</translation>
        </message>
        <message>
            <source>Nothing is found for “%1”.</source>
            <translation>Nothing is found for “%1”.</translation>
        </message>
    </context>
    <context>
        <name>desk::SheetColumns</name>
        <message>
            <source>As at first</source>
            <translation>As at first</translation>
        </message>
    </context>
    <context>
        <name>desk::SheetQuestion</name>
        <message>
            <source>Adding up…</source>
            <translation>Adding up…</translation>
        </message>
        <message>
            <source>Sorting %1 rows…</source>
            <translation>Sorting %1 rows…</translation>
        </message>
    </context>
    <context>
        <name>desk::SheetRoom</name>
        <message>
            <source>This was not read to its end</source>
            <translation>This was not read to its end</translation>
        </message>
        <message>
            <source>F5 asks again.</source>
            <translation>F5 asks again.</translation>
        </message>
        <message>
            <source>Nothing here yet</source>
            <translation>Nothing here yet</translation>
        </message>
    </context>
    <context>
        <name>desk::SheetView</name>
        <message>
            <source>Columns</source>
            <translation>Columns</translation>
        </message>
        <message>
            <source>Choose the columns; drag a head to move it</source>
            <translation>Choose the columns; drag a head to move it</translation>
        </message>
        <message>
            <source>Hand over</source>
            <translation>Hand over</translation>
        </message>
        <message>
            <source>Copy, write to a file or print (Ctrl+E)</source>
            <translation>Copy, write to a file or print (Ctrl+E)</translation>
        </message>
        <message numerus="yes">
            <source>%Ln row(s)</source>
            <translation>
                <numerusform>%Ln row</numerusform>
                <numerusform>%Ln rows</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>desk::StatementPage</name>
        <message>
            <source>%1; closing balance %2</source>
            <translation>%1; closing balance %2</translation>
        </message>
        <message numerus="yes">
            <source>%Ln line(s)</source>
            <translation>
                <numerusform>%Ln line</numerusform>
                <numerusform>%Ln lines</numerusform>
            </translation>
        </message>
    </context>
    <context>
        <name>desk::StockPage</name>
        <message>
            <source>Stock</source>
            <translation>Stock</translation>
        </message>
        <message>
            <source>Words in names and notes   Ctrl+F</source>
            <translation>Words in names and notes   Ctrl+F</translation>
        </message>
        <message>
            <source>Words in names and notes</source>
            <translation>Words in names and notes</translation>
        </message>
        <message>
            <source>&amp;Short or over</source>
            <translation>&amp;Short or over</translation>
        </message>
        <message>
            <source>&amp;All items</source>
            <translation>&amp;All items</translation>
        </message>
        <message>
            <source>&amp;Below reorder</source>
            <translation>&amp;Below reorder</translation>
        </message>
        <message>
            <source>&amp;Over-stocked</source>
            <translation>&amp;Over-stocked</translation>
        </message>
        <message>
            <source>&amp;Type</source>
            <translation>&amp;Type</translation>
        </message>
        <message>
            <source>&amp;All types</source>
            <translation>&amp;All types</translation>
        </message>
        <message>
            <source>&amp;Receipt</source>
            <translation>&amp;Receipt</translation>
        </message>
        <message>
            <source>&amp;Issue</source>
            <translation>&amp;Issue</translation>
        </message>
        <message>
            <source>&amp;Outstanding</source>
            <translation>&amp;Outstanding</translation>
        </message>
        <message>
            <source>&amp;All orders</source>
            <translation>&amp;All orders</translation>
        </message>
        <message>
            <source>Only &amp;outstanding</source>
            <translation>Only &amp;outstanding</translation>
        </message>
        <message>
            <source>&amp;Items</source>
            <translation>&amp;Items</translation>
        </message>
        <message>
            <source>Mo&amp;vements</source>
            <translation>Mo&amp;vements</translation>
        </message>
        <message>
            <source>O&amp;rders</source>
            <translation>O&amp;rders</translation>
        </message>
        <message>
            <source>Bi&amp;lls</source>
            <translation>Bi&amp;lls</translation>
        </message>
        <message>
            <source>Net stock by the items' counters, worth at their prices</source>
            <translation>Net stock by the items' counters, worth at their prices</translation>
        </message>
        <message>
            <source>Receipts and issues, with the item's stock behind each</source>
            <translation>Receipts and issues, with the item's stock behind each</translation>
        </message>
        <message>
            <source>Lines of purchase orders, with what is still to come</source>
            <translation>Lines of purchase orders, with what is still to come</translation>
        </message>
        <message>
            <source>Bills that goods came with, and what they posted</source>
            <translation>Bills that goods came with, and what they posted</translation>
        </message>
        <message>
            <source>No line fits</source>
            <translation>No line fits</translation>
        </message>
        <message>
            <source>Take a word or a filter away to see more.</source>
            <translation>Take a word or a filter away to see more.</translation>
        </message>
        <message>
            <source>There are no items yet</source>
            <translation>There are no items yet</translation>
        </message>
        <message>
            <source>The Item Master adds them: F9.</source>
            <translation>The Item Master adds them: F9.</translation>
        </message>
        <message>
            <source>Nothing has moved in this year</source>
            <translation>Nothing has moved in this year</translation>
        </message>
        <message>
            <source>F6 enters a receipt of goods, F7 an issue.</source>
            <translation>F6 enters a receipt of goods, F7 an issue.</translation>
        </message>
        <message>
            <source>There are no orders yet</source>
            <translation>There are no orders yet</translation>
        </message>
        <message>
            <source>F8 writes one.</source>
            <translation>F8 writes one.</translation>
        </message>
        <message>
            <source>There are no bills yet</source>
            <translation>There are no bills yet</translation>
        </message>
        <message>
            <source>A receipt of goods brings its bill: F6.</source>
            <translation>A receipt of goods brings its bill: F6.</translation>
        </message>
        <message>
            <source>Change</source>
            <translation>Change</translation>
        </message>
    </context>
    <context>
        <name>desk::VoucherChips</name>
        <message>
            <source>Words in the narration   Ctrl+F</source>
            <translation>Words in the narration   Ctrl+F</translation>
        </message>
        <message>
            <source>Words in the narration</source>
            <translation>Words in the narration</translation>
        </message>
        <message>
            <source>&amp;Type</source>
            <translation>&amp;Type</translation>
        </message>
        <message>
            <source>&amp;Ledger</source>
            <translation>&amp;Ledger</translation>
        </message>
        <message>
            <source>Show &amp;all</source>
            <translation>Show &amp;all</translation>
        </message>
        <message>
            <source>All types</source>
            <translation>All types</translation>
        </message>
        <message>
            <source>Part of the name</source>
            <translation>Part of the name</translation>
        </message>
        <message>
            <source>Part of the ledger's name</source>
            <translation>Part of the ledger's name</translation>
        </message>
        <message>
            <source>Ledgers</source>
            <translation>Ledgers</translation>
        </message>
        <message>
            <source>All ledgers</source>
            <translation>All ledgers</translation>
        </message>
        <message>
            <source>At least</source>
            <translation>At least</translation>
        </message>
        <message>
            <source>At most</source>
            <translation>At most</translation>
        </message>
        <message>
            <source>Show these amounts</source>
            <translation>Show these amounts</translation>
        </message>
        <message>
            <source>%1 to %2</source>
            <translation>%1 to %2</translation>
        </message>
        <message>
            <source>from %1</source>
            <translation>from %1</translation>
        </message>
        <message>
            <source>up to %1</source>
            <translation>up to %1</translation>
        </message>
        <message>
            <source>Amou&amp;nt</source>
            <translation>Amou&amp;nt</translation>
        </message>
    </context>
    <context>
        <name>desk::VouchersPage</name>
        <message>
            <source>Vouchers</source>
            <translation>Vouchers</translation>
        </message>
        <message>
            <source>New</source>
            <translation>New</translation>
        </message>
        <message>
            <source>Copy as new</source>
            <translation>Copy as new</translation>
        </message>
        <message>
            <source>Print voucher</source>
            <translation>Print voucher</translation>
        </message>
        <message>
            <source>No line fits</source>
            <translation>No line fits</translation>
        </message>
        <message>
            <source>Nothing of this year is %1. Show all takes the filters away.</source>
            <translation>Nothing of this year is %1. Show all takes the filters away.</translation>
        </message>
        <message>
            <source>No vouchers yet</source>
            <translation>No vouchers yet</translation>
        </message>
        <message>
            <source>F2 enters the first.</source>
            <translation>F2 enters the first.</translation>
        </message>
        <message>
            <source>%1 voucher %2, %3</source>
            <translation>%1 voucher %2, %3</translation>
        </message>
        <message>
            <source>Adding up…</source>
            <translation>Adding up…</translation>
        </message>
        <message numerus="yes">
            <source>%Ln line(s)</source>
            <translation>
                <numerusform>%Ln line</numerusform>
                <numerusform>%Ln lines</numerusform>
            </translation>
        </message>
        <message>
            <source>Not added up: F5 tries again</source>
            <translation>Not added up: F5 tries again</translation>
        </message>
    </context>
    <context>
        <name>desk::WaitBox</name>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>Please wait</source>
            <translation>Please wait</translation>
        </message>
    </context>
    <context>
        <name>desk::YearSwitch</name>
        <message>
            <source>Make %1 the current year?</source>
            <translation>Make %1 the current year?</translation>
        </message>
        <message>
            <source>All pages and screens then show %1, and new vouchers go there. Other programs that open these books follow. Nothing of %2 changes.</source>
            <translation>All pages and screens then show %1, and new vouchers go there. Other programs that open these books follow. Nothing of %2 changes.</translation>
        </message>
        <message>
            <source>Switch to %1</source>
            <translation>Switch to %1</translation>
        </message>
        <message>
            <source>Stay in %1</source>
            <translation>Stay in %1</translation>
        </message>
        <message>
            <source>The current year of these books is %1 now.</source>
            <translation>The current year of these books is %1 now.</translation>
        </message>
        <message>
            <source>This window and its screens still work in %1.</source>
            <translation>This window and its screens still work in %1.</translation>
        </message>
        <message>
            <source>Work in %1</source>
            <translation>Work in %1</translation>
        </message>
        <message>
            <source>Stay</source>
            <translation>Stay</translation>
        </message>
    </context>
</TS>
