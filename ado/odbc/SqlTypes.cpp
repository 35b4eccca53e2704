#include "ado/odbc/SqlTypes.h"

namespace quorvel::ado::odbc {

DataType DataTypeOf(SQLSMALLINT sqlType, SQLULEN size) noexcept {
  const bool isLong = size == 0 || size > kLongestText;
  switch (sqlType) {
    case SQL_BIT:
      return DataType::Boolean;
    case SQL_TINYINT:
    case SQL_SMALLINT:
      return DataType::SmallInt;
    case SQL_INTEGER:
      return DataType::Integer;
    case SQL_BIGINT:
      return DataType::BigInt;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return DataType::Double;
    case SQL_DATE:
    case SQL_TIMESTAMP:
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return DataType::DBTimeStamp;
    case SQL_CHAR:
    case SQL_VARCHAR:
      return isLong ? DataType::LongVarChar : DataType::VarChar;
    case SQL_LONGVARCHAR:
      return DataType::LongVarChar;
    case SQL_WLONGVARCHAR:
    case SQL_LONGVARBINARY:
      return DataType::LongVarWChar;
    default:
      return isLong ? DataType::LongVarWChar : DataType::VarWChar;
  }
}

}  // namespace quorvel::ado::odbc
