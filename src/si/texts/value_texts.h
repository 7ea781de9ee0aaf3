#pragma once

// Words for coded values, in the Windows-1252 code page. Each function takes the field's coded
// value; the texts are constant.

namespace lib13818 {

const char* caProviderText(int CA_system_id);
const char* polarizationText(int polarization);
const char* satelliteModulationText(int modulation);
const char* fecInnerText(int FEC_inner);
const char* serviceTypeText(int service_type);
const char* teletextTypeText(int teletext_type);
const char* contentNibble1Text(int level1);
const char* contentGenreText(int level1, int level2);
const char* hierarchyTypeText(int hierarchy_type);
const char* alignmentTypeText(int alignment_type);
const char* codingTypeText(int coding_type);
const char* streamTypeText(int stream_type);

} // namespace lib13818
