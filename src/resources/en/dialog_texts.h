/* The texts of the dialogs in English, for the resource compiler. */
#define ORVELL_TEXT_PARAMETER "Parameter"
#define ORVELL_TEXT_MEMORY_AREA "Memory area: "
#define ORVELL_TEXT_VECTOR "Vector"
#define ORVELL_TEXT_BOX_WIDTH "Box width: "
#define ORVELL_TEXT_FORMAT "Format: "
#define ORVELL_TEXT_CANCEL "Cancel"
#define ORVELL_TEXT_TRANSFERRING "Transferring the values to the target system ..."
