/* The grid on which the page's overlays stand, in dialog units of the frame; docs/dialogs.md tells how to use it. */
#ifndef KOLMA_RESOURCES_DIALOGS_GRID_H
#define KOLMA_RESOURCES_DIALOGS_GRID_H

#define PAGE_FONT 9, "MS Shell Dlg"

/* The page. */
#define PAGE_W 420
#define PAGE_H 288
#define MARGIN 7
#define GAP 4

/* The navigation column on the left. */
#define NAVIGATION_W 82
#define NAVIGATION_H 238
#define HELP_Y 249
#define PREFERENCES_Y 267

/* The overlay's frame: a group box, whose line lies level with the top and bottom of the navigation column. */
#define AREA_X 96
#define AREA_Y 3
#define AREA_W 317
#define AREA_H 278

/* Two columns inside of it. A column is a gutter for a picture and a field with its label above; a field that stands
   without a picture may take the whole column. */
#define COLUMN_1 105
#define FIELD_1 144
#define COLUMN_2 258
#define FIELD_2 297
#define COLUMN_W 146
#define FIELD_W 107
#define BOTH_W 299

/* Rows with a picture: the block of label and field stands in the middle of the picture's height. */
#define ROW_1 17
#define ROW_2 54
#define ROW_3 91
#define ROW_4 128
#define ROW_5 165
#define LABEL_OF(row) ((row) + 4)
#define FIELD_OF(row) ((row) + 14)

/* Sizes of items. A combo box is told with the height of its open list. */
#define LABEL_H 8
#define FIELD_H 14
#define OPTION_H 10
#define BUTTON_H 14
#define COMBO_H 120
#define PICTURE_SIDE 32

#endif
