# Differential evolution by DEoptim over deSolve with a compiled right-hand side: ms a candidate.
suppressMessages({library(deSolve); library(DEoptim)})
arguments <- commandArgs(trailingOnly = TRUE)
dyn.load(arguments[1])
generations <- as.integer(arguments[2])
times <- seq(0, 45, length.out = 13)
others <- c(0.27, 1.5, 0.01, 0.45, 0.01, 0.001)
curve <- function(x, Cs0)
  lsoda(c(0.5, Cs0, 0.1), times, "derivs", c(x, others), dllname = "andrews_levenspiel",
        initfunc = "initmod", rtol = 1e-6, atol = 1e-6)[, 2:4]
data <- lapply(c(40, 60, 80), function(Cs0) curve(c(0.3, 8, 90, 60, 1.3), Cs0))
scales <- lapply(data, function(d) apply(d, 2, max))
score <- function(x) {
  sum <- 0
  for (e in 1:3) {
    difference <- sweep(curve(x, c(40, 60, 80)[e]) - data[[e]], 2, scales[[e]], "/")
    sum <- sum + sum(difference[1:12, ]^2)
  }
  if (is.finite(sum)) sum else 1e30
}
set.seed(5471)
seconds <- system.time(fit <- DEoptim(score, c(0.05, 1, 20, 40, 0.3), c(1, 30, 300, 120, 3),
  DEoptim.control(NP = 100, itermax = generations, trace = FALSE)))["elapsed"]
cat(1000 * seconds / fit$optim$nfeval, "\n")
