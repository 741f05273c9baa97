#pragma once

#include "framework/abstract_types/number.h"
#include "tests/reference/enum_set.h"

namespace kiv::bench {

// The enumerated kind as one would write it first: a domain of the framework that keeps its values
// in a sorted vector and whose operations are the literal ones. Its entries do what those of any
// kind cannot do without: they are virtual, ask for the kind of their operands, and answer for Nil.
// Operands of other kinds count as Nil.
class LiteralDomain : public KivOmbiNumber {
 public:
  LiteralDomain() = default;
  explicit LiteralDomain(reference::EnumSet values) : set(std::move(values)) {}

  static const char CastableIdent[];
  const char* CastableID() const override { return CastableIdent; }
  int IsDerivedFrom(const char* ident) const override;
  const KivOmbiObjectDescriptor* GetDescriptor() const override { return nullptr; }

  void Assign(const KivOmbiAny& x) override;
  void SetNilValue() override { MakeNil(set); }
  void SetUndefinedValue() override { MakeAny(set); }
  int IsNil() const override { return set.IsNil() ? 1 : 0; }
  int IsUndefined() const override { return set.IsAny() ? 1 : 0; }
  int IsIntersected(const KivOmbiAny& x) const override;
  void Intersect(const KivOmbiAny& x) override { CalcEqualValue(x); }
  void Unite(const KivOmbiAny& x) override;
  std::uint32_t GetCardinality() const override;

  int CalcEqualValue(const KivOmbiAny& x) override;
  int CalcLessOrEqualValue(const KivOmbiAny& x) override;
  int CalcMinValue(const KivOmbiAny& x, const KivOmbiAny& y) override;
  int CalcNextValue(const KivOmbiScalar& x) override;
  int CalcAbsoluteValue(const KivOmbiNumber& x) override;
  int CalcNegativeValue(const KivOmbiNumber& x) override;
  int CalcSumValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseSumValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  int CalcProdValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseProdValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  int CalcModValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseModValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  int CalcSecondInverseModValue(const KivOmbiNumber& x, KivOmbiNumber& y) const override;

  reference::EnumSet set;

 private:
  template <class Core>
  int Forward(const KivOmbiAny& x, Core core);
  template <class Core>
  int Forward(const KivOmbiAny& x, const KivOmbiAny& y, Core core);
  template <class Core>
  int Inverse(KivOmbiAny& target, const KivOmbiAny& known, Core core) const;
};

}  // namespace kiv::bench
