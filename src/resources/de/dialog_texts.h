/* The texts of the dialogs in German, for the resource compiler. */
#define ORVELL_TEXT_PARAMETER "Parameter"
#define ORVELL_TEXT_MEMORY_AREA "Speicherbereich: "
#define ORVELL_TEXT_VECTOR "Vektor"
#define ORVELL_TEXT_BOX_WIDTH "Kastenbreite: "
#define ORVELL_TEXT_FORMAT "Format: "
#define ORVELL_TEXT_CANCEL "Abbrechen"
#define ORVELL_TEXT_TRANSFERRING L"\x00dcbertrage die Parameterwerte ins Zielsystem ..."
