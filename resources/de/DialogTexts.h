// German texts of the dialogs, in the order of Dialogs.rc. "&" marks the access key; keys are unique among what is on
// screen together.

#define TXT_OK "OK"
#define TXT_CANCEL "Abbrechen"

// General tab
#define TXT_TAB_GENERAL "Allgemein"
#define TXT_DESCRIPTION "&Beschreibung:"
#define TXT_DRIVER_GROUP "Treiber"
#define TXT_DRIVER_FILE "Datei:"
#define WIDTH_DRIVER_FILE 22
#define TXT_PRINTER_GROUP "Drucker"
#define TXT_INSTALLED_PRINTERS "Installierte Drucker:"
#define TXT_PRINTERS_HINT "Der Drucker einer Konfiguration wird hier nicht geändert. Für einen anderen Drucker legen Sie eine Konfiguration dieses Druckers an."

// Device tab and its pages
#define TXT_TAB_DEVICE "Geräte- und Dokumenteinstellungen"
#define TXT_SETTINGS "&Einstellungen:"
#define TXT_SAVE_AS "Speichern &unter..."
#define TXT_DEFAULTS "&Standardwerte"

#define TXT_VECTOR_GROUP "Vektorgrafik"
#define TXT_COLORS "Farben:"
#define TXT_MONOCHROME "Schwarzweiß"
#define TXT_COLOR "Farbig"
#define TXT_RESOLUTION "Auflösung:"
#define TXT_DITHERING "Rasterung:"
#define TXT_VECTOR_HINT "Diese Werte stammen vom Druckertreiber. Ändern können Sie sie in dessen eigenen Einstellungen unter „Treibereigenschaften“."

#define TXT_RASTER_GROUP "Rastergrafik"
#define TXT_ISM_MAX "&Rasterbilder:"
#define TXT_OLE_MAX "&OLE-Objekte:"
#define TXT_PREFERENCE "&Vorrang:"
#define TXT_DRAFT "Entwurf"
#define TXT_BEST "Optimal"
#define TXT_SPEED "Tempo"
#define TXT_QUALITY_END "Qualität"

#define TXT_COLLATING_GROUP "Sortierung"
#define TXT_COPIES "&Kopien:"
#define TXT_COLLATING_HINT "Sortierte Kopien mehrerer Blätter kommen Satz für Satz aus dem Gerät, andere Blatt für Blatt."

#define TXT_TRUETYPE_GROUP "TrueType-Text"
#define TXT_AS_TEXT "Als &Text plotten"
#define TXT_AS_GRAPHICS "Als &Grafik plotten"
#define TXT_TRUETYPE_HINT "Text nutzt die Schriften des Geräts und wird schneller geplottet. Grafik sieht auf jedem Gerät gleich aus."

#define TXT_MERGE_GROUP "Linienüberlagerung"
#define TXT_OVERWRITE "&Linien überdecken"
#define TXT_MERGE "Linien &mischen"
#define TXT_MERGE_HINT "Wo sich Linien kreuzen, verdeckt die zuletzt gezeichnete die anderen, oder ihre Farben werden gemischt."

#define TXT_CUSTOM_GROUP "Treibereigenschaften"
#define TXT_CUSTOM_WHAT "Der Druckertreiber hat eigene Einstellungen, zum Beispiel für Papier, Qualität und Farbe. Die Schaltfläche öffnet sie."
#define TXT_CUSTOM_BUTTON "&Treibereigenschaften..."
#define TXT_CUSTOM_HINT "Bei einer Konfiguration, die keinen Windows-Drucker verwendet, ist sie ohne Wirkung."

// Name of a changed configuration
#define TXT_NAME_CAPTION "Plotterkonfiguration speichern"
#define TXT_NAME_WHAT "Die Konfiguration wurde geändert. Unter welchem Namen soll sie im Ordner der Plotterkonfigurationen gespeichert werden?"
#define TXT_NAME "&Name:"

// Properties of the virtual printers
#define TXT_PAPER "&Papier:"
#define TXT_QUALITY "&Qualität:"
#define TXT_CUSTOM_SIZE "Eigenes Format"
#define TXT_WIDTH "&Breite:"
#define TXT_LENGTH "&Länge:"
#define TXT_MILLIMETRES "&Millimeter"
#define TXT_INCHES "&Zoll"
#define TXT_ORIENTATION "Ausrichtung"
#define TXT_PORTRAIT "&Hochformat"
#define TXT_LANDSCAPE "Que&rformat"
