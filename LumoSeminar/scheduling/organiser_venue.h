#pragma once

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// A row of sysIData_Veranstalter.
struct VeranstalterRow {
    Text Name;
    Text PLZ;
    Text Ort;
    Text Strasse;
    Text Anspr_partner;
    Text Telefon;
    Text Fax;
    Text Sachbearbeiter;
    Text EMail;
    Text URL;
    Text Mobiltelefon;
    Text Bemerkungen;
};

/// A row of sysIData_VOrte.
struct VeranstaltungsOrtRow {
    Text Name;
    Text PLZ;
    Text Ort;
    Text Strasse;
    Text Anspr_partner;
    Text Telefon;
    Text Fax;
    Text Sachbearbeiter;
};

/// The organiser of a date, read by Init. A text is empty where the column is Null and where there is no row.
class clsTerminVeranstalter final : public Object {
  public:
    Text Name();
    Text PLZ();
    Text Ort();
    Text Strasse();
    Text Ansprechpartner();
    Text Telefon();
    Text Fax();
    Text Sachbearbeiter();
    Text Email();
    Text URL();
    Text Mobiltelefon();
    Text Bemerkungen();

    /// Reads the row. One statement; none where the connection is closed and cannot be opened. The result is true in
    /// either case, and without a row. Raises what the connection raises where it refuses the statement.
    Bool Init(Int32 p_lngID, Ref<DataSession> p_objAdoDirect);

  private:
    VeranstalterRow row_;
};

/// The venue of a date, read by Init. A text is empty where the column is Null and where there is no row.
class clsTerminVeranstaltungsOrt final : public Object {
  public:
    Text Name();
    Text PLZ();
    Text Ort();
    Text Strasse();
    Text Ansprechpartner();
    Text Telefon();
    Text Fax();
    Text Sachbearbeiter();

    /// As that of clsTerminVeranstalter.
    Bool Init(Int32 p_lngID, Ref<DataSession> p_objAdoDirect);

  private:
    VeranstaltungsOrtRow row_;
};

}  // namespace LumoSeminar
