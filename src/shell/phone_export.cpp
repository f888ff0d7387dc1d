#include "shell/phone_export.h"

#include <string>

#include "reports/hole_summary_report.h"
#include "reports/phone_page.h"
#include "reports/phone_picture.h"
#include "reports/stale_mark.h"
#include "screen/file_choice.h"
#include "screen/words.h"
#include "shell/csv_export.h"

namespace torvale {

void mnuExportPhone_Click(Program& program) {
  ExportText(program,
             {"Export Hole Summary for Phone", "Page for a phone (*.html)|*.html", kHoleSummary, {".html", ".htm"}},
             PhonePage(CrewSheetOf(program)));
}

void mnuExportPicture_Click(Program& program) {
  TakeOut(program, [&] {
    const auto path =
        ChooseExport(program, {"Export Hole Summary as Picture", "PNG picture (*.png)|*.png", kHoleSummary, {".png"}});
    if (!path) return;
    const Document picture = PhonePicture(CrewSheetOf(program));
    TellExported(program, *path, program.host.WritePicture(picture, *path), words::kPictureNotWritten);
  });
}

}  // namespace torvale
