#pragma once

// One name for each resource of the module jtres37.dll, read by the resource scripts and by C++ alike.
// A number is for good: a translated module made for one version is looked up by the same numbers in the next.

#include "resources/ids_capabilities.h"
#include "resources/ids_dialogs.h"
#include "resources/ids_features.h"
#include "resources/ids_reserved.h"
#include "resources/ids_values.h"

// Captions of message boxes; the second one is also the title of the page in the document's sheet.
#define IDS_CAPTION_PRINTER_PROPERTIES 11563
#define IDS_CAPTION_DOCUMENT_PROPERTIES 11604
#define IDS_CAPTION_DRIVER 11606

// Failure reports: a heading says what went wrong, a body what it means and what to do.
#define IDS_FAILURE_HEADING 11601
#define IDS_FAILURE_BODY 11602
#define IDS_OUT_OF_MEMORY 11607
#define IDS_SETTINGS_TOO_LARGE_HEADING 11608
#define IDS_SETTINGS_TOO_LARGE_BODY 11609
#define IDS_RESOURCE_FAILURE_HEADING 11610
#define IDS_RESOURCE_FAILURE_BODY 11611
#define IDS_SPOOL_DATA_FAILURE_HEADING 11612
#define IDS_SPOOL_DATA_FAILURE_BODY 11613
#define IDS_PREFERENCES_FAILURE_HEADING 11614
#define IDS_XML_FAILURE_HEADING 11615
#define IDS_XML_FAILURE_BODY 11616
#define IDS_FILE_FAILURE_HEADING 11617
#define IDS_FILE_FAILURE_BODY 11618
#define IDS_UNKNOWN_FAILURE_CHOICE 11620
#define IDS_UNKNOWN_FAILURE_BODY 11621

// What was being done when a failure came.
#define IDS_CONTEXT_READ_CAPABILITY_FILE 11566
#define IDS_CONTEXT_CLEAR_CAPABILITIES 11567
#define IDS_CONTEXT_IMPORT_CAPABILITIES 11568
#define IDS_CONTEXT_APPLY_PRINTER_PROPERTIES 11569
#define IDS_CONTEXT_SELECT_CAPABILITY_FILE 11570

// Items in the host's own sheets.
#define IDS_ITEM_CAPABILITIES 11560
#define IDS_ITEM_CAPABILITIES_BUILT_IN 11561
#define IDS_ITEM_CAPABILITIES_FILE 11562
#define IDS_ITEM_RENDO_TICKET 11576
#define IDS_ITEM_RENDO_TICKET_YES 11578
#define IDS_ITEM_RENDO_TICKET_NO 11579
#define IDS_ITEM_EDITABLE 11585
#define IDS_ITEM_EDITABLE_YES 11586
#define IDS_ITEM_EDITABLE_NO 11587

// Choosing a printer capability file. The filter is raw data in the form of the system's file dialogs.
#define IDS_CAPABILITY_FILE_EXTENSION 11002
#define IDS_CAPABILITY_FILE_PATH_TOO_LONG 11564
#define IDS_CAPABILITY_FILE_ACCEPTED 11565
#define IDR_CAPABILITY_FILE_FILTER 11012

// Printer defaults.
#define IDS_DEFAULT_JOB_NAME 10826
#define IDS_DEFAULT_USER_NAME 6201

// Settings that the printer cannot honor: the short message, and the limitations dialog with its report.
// The report appends a colon to the heading of a job-wide problem, and joins each category with its announcement.
#define IDS_LIMITATIONS_MESSAGE_CHOICE 11540
#define IDS_LIMITATIONS_MESSAGE 11541
#define IDS_FIX_REMOVED 11543
#define IDS_FIX_REMOVED_FROM_ENTRY 11544
#define IDS_FIX_ENTRY_REMOVED 11545
#define IDS_CATEGORY_UNSUPPORTED_FEATURES 11546
#define IDS_COLUMNS_UNSUPPORTED_FEATURES 11547
#define IDS_CATEGORY_UNSUPPORTED_VALUES 11548
#define IDS_COLUMNS_UNSUPPORTED_VALUES 11549
#define IDS_CATEGORY_MISSING_FEATURES 11550
#define IDS_COLUMNS_MISSING_FEATURES 11551
#define IDS_CONTEXT_HEADING_JOB 11552
#define IDS_LIMITATIONS_HEADLINE_CHOICE 11553
#define IDS_REPAIR_UNSUPPORTED_FEATURES 11554
#define IDS_REPAIR_UNSUPPORTED_VALUES 11555
#define IDS_REPAIR_MISSING_FEATURES 11556

// Job ticket files that could not be read or written.
#define IDS_TICKET_INVALID 5211
#define IDS_TICKET_READ_FAILED 5212
#define IDS_TICKET_OPEN_FAILED 5213
#define IDS_TICKET_WRITE_FAILED 5214
#define IDS_TICKET_CREATE_FAILED 5215
#define IDS_TICKET_FAILED 5216

// Stocks: the word that stands before a stock's name (with the space between them), and the suffixes that tell in a
// list where a stock comes from (with the space before them).
#define IDS_STOCK_PREFIX 7350
#define IDS_STOCK_SUFFIX_USER 7500
#define IDS_STOCK_SUFFIX_PRINTER 7501

// Names of the stock sizes.
#define IDS_SIZE_LETTER 7265
#define IDS_SIZE_LEGAL 7266
#define IDS_SIZE_LEDGER 7267
#define IDS_SIZE_LETTER_COVER 7268
#define IDS_SIZE_FOLIO 7270
#define IDS_SIZE_A4_WIDE 7271
#define IDS_SIZE_A4 7272
#define IDS_SIZE_A3 7273
#define IDS_SIZE_ISO_B4 7274
#define IDS_SIZE_JIS_B4 7275
#define IDS_SIZE_CUSTOM 7278
#define IDS_SIZE_NONE 7279
#define IDS_SIZE_12X18 7382
#define IDS_SIZE_SRA3 7383
#define IDS_SIZE_ISO_B3 7384
