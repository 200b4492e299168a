/* Numbers of the dialogs, of their controls and of their image; also read by the resource compiler.
   Drivers and language libraries of others rely on them. */
#pragma once

#define ORVELL_DIALOG_PARAMETER 130
#define ORVELL_IMAGE_PARAMETER 132
#define ORVELL_DIALOG_TRANSFER 134

/* The parameter dialog */
#define ORVELL_BOX_WIDTH_EDIT 1001
#define ORVELL_VECTOR_CHECK 1002
#define ORVELL_VECTOR_LENGTH_EDIT 1003
#define ORVELL_VECTOR_LENGTH_SPIN 1004
#define ORVELL_BOX_WIDTH_SPIN 1005
#define ORVELL_AREA_NAME 1006
#define ORVELL_VALUE_GRID 1007
#define ORVELL_FORMAT_BOX 1011
#define ORVELL_FORMAT_LABEL 1012

/* The transfer dialog */
#define ORVELL_TRANSFER_PROGRESS 1010
