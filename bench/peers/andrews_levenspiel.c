/* The batch balances with Andrews' growth and Levenspiel's product inhibition, for deSolve. */
#include <R.h>
#include <math.h>

enum { muMax, Ks, Kis, CpAst, n, Yxs, alpha, beta, Yps, ms, Kdp, kParameters };

static double p[kParameters];

void initmod(void (*read)(int *, double *)) {
  int count = kParameters;
  read(&count, p);
}

void derivs(int *neq, double *t, double *y, double *dy, double *out, int *ip) {
  const double Cx = y[0], Cs = y[1] < 1e-4 ? 0 : y[1], Cp = y[2] < p[CpAst] ? y[2] : p[CpAst];
  const double mu =
      p[muMax] * Cs / (Cs + p[Ks] + Cs * Cs / p[Kis]) * pow(1 - Cp / p[CpAst], p[n]);
  const double production = p[alpha] * mu + (y[1] <= 10 ? p[beta] : 0);
  dy[0] = Cx * mu;
  dy[1] = -Cx * (p[ms] + mu / p[Yxs] + production / p[Yps]);
  dy[2] = Cx * production - p[Kdp] * Cp;
}
