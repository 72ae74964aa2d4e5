// Japanese texts of the dialogs, in the order of Dialogs.rc. "&" marks the access key, a Latin letter in brackets
// behind the text; keys are unique among what is on screen together.

#define TXT_OK "OK"
#define TXT_CANCEL "キャンセル"

// General tab
#define TXT_TAB_GENERAL "全般"
#define TXT_DESCRIPTION "説明(&D):"
#define TXT_DRIVER_GROUP "ドライバー"
#define TXT_DRIVER_FILE "ファイル:"
#define WIDTH_DRIVER_FILE 31
#define TXT_PRINTER_GROUP "プリンター"
#define TXT_INSTALLED_PRINTERS "インストール済みプリンター:"
#define TXT_PRINTERS_HINT "構成のプリンターはここでは変更できません。別のプリンターを使うには、そのプリンター用の構成を作成してください。"

// Device tab and its pages
#define TXT_TAB_DEVICE "デバイスとドキュメントの設定"
#define TXT_SETTINGS "設定(&S):"
#define TXT_SAVE_AS "名前を付けて保存(&A)..."
#define TXT_DEFAULTS "既定値に戻す(&D)"

#define TXT_VECTOR_GROUP "ベクトル グラフィックス"
#define TXT_COLORS "色数:"
#define TXT_MONOCHROME "モノクロ"
#define TXT_COLOR "カラー"
#define TXT_RESOLUTION "解像度:"
#define TXT_DITHERING "ディザリング:"
#define TXT_VECTOR_HINT "これらの値はプリンター ドライバーのものです。変更するには、「カスタム プロパティ」からドライバーの設定を開いてください。"

#define TXT_RASTER_GROUP "ラスター グラフィックス"
#define TXT_ISM_MAX "ラスター画像(&R):"
#define TXT_OLE_MAX "OLE オブジェクト(&O):"
#define TXT_PREFERENCE "優先(&P):"
#define TXT_DRAFT "下書き"
#define TXT_BEST "最高"
#define TXT_SPEED "速度"
#define TXT_QUALITY_END "品質"

#define TXT_COLLATING_GROUP "丁合い"
#define TXT_COPIES "部数の出力順(&C):"
#define TXT_COLLATING_HINT "丁合いをとると、複数枚の図面が 1 部ずつ出力されます。とらない場合は 1 枚ずつ部数分が出力されます。"

#define TXT_TRUETYPE_GROUP "TrueType 文字"
#define TXT_AS_TEXT "文字として印刷(&T)"
#define TXT_AS_GRAPHICS "図形として印刷(&G)"
#define TXT_TRUETYPE_HINT "文字はデバイスのフォントで速く印刷されます。図形はどのデバイスでも同じ見た目になります。"

#define TXT_MERGE_GROUP "線の重なり"
#define TXT_OVERWRITE "線を上書き(&O)"
#define TXT_MERGE "線を合成(&M)"
#define TXT_MERGE_HINT "線が交わる所では、後から描いた線がほかの線を隠すか、色が混ざります。"

#define TXT_CUSTOM_GROUP "カスタム プロパティ"
#define TXT_CUSTOM_WHAT "用紙、品質、色など、プリンター ドライバー独自の設定があります。ボタンをクリックすると開きます。"
#define TXT_CUSTOM_BUTTON "カスタム プロパティ(&C)..."
#define TXT_CUSTOM_HINT "Windows プリンターを使わない構成では、ボタンをクリックしても何も起こりません。"

// Name of a changed configuration
#define TXT_NAME_CAPTION "プロッター構成の保存"
#define TXT_NAME_WHAT "構成が変更されました。プロッター構成のフォルダーに保存する名前を入力してください。"
#define TXT_NAME "名前(&N):"

// Properties of the virtual printers
#define TXT_PAPER "用紙(&P):"
#define TXT_QUALITY "品質(&Q):"
#define TXT_CUSTOM_SIZE "ユーザー定義サイズ"
#define TXT_WIDTH "幅(&W):"
#define TXT_LENGTH "長さ(&L):"
#define TXT_MILLIMETRES "ミリメートル(&M)"
#define TXT_INCHES "インチ(&I)"
#define TXT_ORIENTATION "印刷の向き"
#define TXT_PORTRAIT "縦(&O)"
#define TXT_LANDSCAPE "横(&A)"
